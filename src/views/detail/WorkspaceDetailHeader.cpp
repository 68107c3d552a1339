// SPDX-License-Identifier: MIT

#include "views/detail/WorkspaceDetailHeader.h"

#include "model/TrovellWorkspace.h"
#include "views/detail/DetailHeaderLayout.h"
#include "views/style/Layouts.h"
#include "views/style/Menus.h"
#include "views/style/PushButton.h"
#include "views/style/SymbolView.h"
#include "views/style/TextLabel.h"

#include <QApplication>

namespace trovell {

using namespace Qt::StringLiterals;

WorkspaceDetailHeader::WorkspaceDetailHeader(const ViewEnvironment& environment, QWidget* parent)
    : QWidget(parent), m_environment(environment),
      m_tile(new SymbolView(environment.visual, {}, 26)),
      m_name(new TextLabel(environment.visual, {}, TextRole::detailTitle)),
      m_counts(new TextLabel(environment.visual, {}, TextRole::body, ColorToken::labelSecondary)),
      m_saveLayout(new ActionButton(environment.visual, u"square.and.arrow.down"_s, {}, {})),
      m_start(new ActionButton(environment.visual, u"play.fill"_s, {}, {},
                               ActionButton::Kind::prominent)),
      m_menuButton(new SymbolButton(environment.visual, u"ellipsis.circle"_s, {}))
{
    m_tile->setTile(52, environment.visual.radius(Radius::tile));
    auto* layout = new DetailHeaderLayout(this);
    layout->addWidget(m_tile);
    layout->addWidget(buildTexts());
    layout->addWidget(m_saveLayout);
    layout->addWidget(m_start);
    layout->addWidget(m_menuButton);
    buildMenu();
    connect(m_saveLayout, &QAbstractButton::clicked, this,
            [this] { Q_EMIT chosen(WorkspaceAction::updateLayout); });
    connect(m_start, &QAbstractButton::clicked, this, &WorkspaceDetailHeader::startOrCancel);
    environment.words.render(this, [this] { showTexts(); });
}

QWidget* WorkspaceDetailHeader::buildTexts()
{
    m_name->setWordWrap(true);
    m_counts->setWordWrap(true);
    auto* texts = new QWidget;
    new ColumnLayout(texts, 0, {m_name, m_counts});
    return texts;
}

void WorkspaceDetailHeader::buildMenu()
{
    auto* menu = new QMenu(this);
    addMenuAction(*menu, u"Edit Workspace"_key, WorkspaceAction::edit);
    addMenuAction(*menu, u"Save as New Workspace"_key, WorkspaceAction::saveAsNew);
    addMenuAction(*menu, u"Duplicate Workspace"_key, WorkspaceAction::duplicate);
    addMenuAction(*menu, u"Rename"_key, WorkspaceAction::rename);
    m_clearLayout = addMenuAction(*menu, u"Clear Saved Layout"_key, WorkspaceAction::clearLayout);
    m_putBack = menu->addAction(QString());
    m_putBack->setVisible(false);
    m_environment.words.renderText(m_putBack, u"Put Windows Back"_key);
    connect(m_putBack, &QAction::triggered, this, &WorkspaceDetailHeader::putBackRequested);
    menu->addSeparator();
    setDestructive(*addMenuAction(*menu, u"Delete Workspace"_key, WorkspaceAction::remove));
    m_menuButton->setMenu(menu, Qt::AlignRight);
}

QAction* WorkspaceDetailHeader::addMenuAction(QMenu& menu, TextKey<> key, WorkspaceAction action)
{
    QAction* const entry = menu.addAction(QString());
    m_environment.words.renderText(entry, key);
    connect(entry, &QAction::triggered, this, [this, action] { Q_EMIT chosen(action); });
    return entry;
}

void WorkspaceDetailHeader::showWorkspace(const TrovellWorkspace& workspace)
{
    m_tile->setSymbol(workspace.symbolName());
    m_name->setText(workspace.name());
    m_activeItemCount = workspace.enabledItemCount();
    m_savedWindowCount = workspace.enabledPlacementCount();
    m_hasItems = workspace.itemCount() > 0;
    m_clearLayout->setEnabled(workspace.placementCount() > 0);
    showTexts();
    updateStart();
}

void WorkspaceDetailHeader::startOrCancel()
{
    if (m_launching == Launching::nothing)
        Q_EMIT chosen(WorkspaceAction::start);
    // The second half of a double click starts, too, and nothing else.
    else if (m_sinceLaunch.hasExpired(QApplication::doubleClickInterval()))
        Q_EMIT cancelRequested();
}

void WorkspaceDetailHeader::setLaunching(Launching launching)
{
    m_launching = launching;
    m_sinceLaunch.start();
    showTexts();
    updateStart();
}

void WorkspaceDetailHeader::setTrusted(bool isTrusted)
{
    m_isTrusted = isTrusted;
    showTexts();
}

void WorkspaceDetailHeader::setCanPutBack(bool canPutBack)
{
    m_putBack->setVisible(canPutBack);
}

void WorkspaceDetailHeader::showTexts()
{
    const Localization& words = m_environment.words;
    m_counts->setText(
        words.text(phrases::activeItemsAndSavedWindows, m_activeItemCount, m_savedWindowCount));
    m_saveLayout->setTexts(words.text(u"Save Layout"_key),
                           words.text(u"Remember current window positions"_key));
    m_saveLayout->setToolTip(
        words.text(m_isTrusted ? u"Save the current size and position of open windows"_key
                               : u"Allow Accessibility access to save window positions"_key));
    m_start->setTexts(words.text(u"Start Workspace"_key),
                      words.text(u"Open everything and restore the layout"_key));
    if (m_launching == Launching::thisWorkspace)
        m_start->setBusyTexts(words.text(u"Starting…"_key), words.text(u"Cancel"_key));
    m_menuButton->setAccessibleName(words.text(u"Workspace Actions"_key));
    m_menuButton->setToolTip(m_menuButton->accessibleName());
}

/// A disabled button gives the keyboard focus away. It gets it back unless the user went on.
void WorkspaceDetailHeader::updateStart()
{
    const bool hadFocus = m_start->hasFocus();
    m_start->setEnabled(m_hasItems && m_launching != Launching::anotherWorkspace);
    QWidget* const focused = QApplication::focusWidget();
    if (hadFocus && focused != m_start)
        m_focusSubstitute = focused;
    if (!m_start->isEnabled() || !m_focusSubstitute)
        return;
    if (focused == m_focusSubstitute)
        m_start->setFocus(Qt::OtherFocusReason);
    m_focusSubstitute.clear();
}

} // namespace trovell
