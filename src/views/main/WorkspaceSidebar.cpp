// SPDX-License-Identifier: MIT

#include "views/main/WorkspaceSidebar.h"

#include "views/main/WorkspaceSidebarList.h"
#include "views/shared/AddWorkspaceButton.h"
#include "views/style/Divider.h"
#include "views/style/Layouts.h"
#include "views/style/Menus.h"
#include "views/style/PushButton.h"
#include "views/style/TextLabel.h"

#include <QPainter>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

constexpr int textInset = 18;
constexpr int sidebarButtonInset = 10;
constexpr int captionAbove = 10;
constexpr int captionBelow = 6;

} // namespace

WorkspaceSidebar::WorkspaceSidebar(const MainEnvironment& environment, QWidget* parent)
    : QWidget(parent), m_environment(environment)
{
    auto* caption =
        new TextLabel(environment.visual, {}, TextRole::caption, ColorToken::labelTertiary);
    caption->setWeight(QFont::DemiBold);
    environment.words.renderText(caption, u"Workspaces"_key);
    auto* captionRow =
        new RowLayout(nullptr, {textInset, captionAbove, textInset, captionBelow}, 0, {caption});
    // Made in the order in which the Tab key reaches them.
    new ColumnLayout(this, 0,
                     {buildHeader(),
                      captionRow,
                      {m_list = new WorkspaceSidebarList(environment, this), 1},
                      new Divider(environment.visual),
                      buildFooter()});
    connectList();
}

QWidget* WorkspaceSidebar::buildHeader()
{
    auto* header = new QWidget(this);
    header->setFixedHeight(m_environment.visual.tokens().size(Tokens::Size::toolbar));
    auto* name = new TextLabel(m_environment.visual, u"Trovell"_s, TextRole::headline);
    auto* add = new AddWorkspaceButton(m_environment);
    connect(add, &AddWorkspaceButton::createRequested, this, &WorkspaceSidebar::createRequested);
    connect(add, &AddWorkspaceButton::captureRequested, this, &WorkspaceSidebar::captureRequested);
    new RowLayout(header, {textInset, 0, sidebarButtonInset, 0}, 6, {{name, 1}, add});
    return header;
}

QWidget* WorkspaceSidebar::buildFooter()
{
    auto* footer = new QWidget(this);
    // With the divider as high as the header.
    footer->setMinimumHeight(m_environment.visual.tokens().size(Tokens::Size::toolbar) - 1);
    auto* settings = new SymbolLink(m_environment.visual, u"gearshape"_s, {});
    m_environment.words.renderText(settings, u"Settings"_key);
    connect(settings, &QAbstractButton::clicked, this, &WorkspaceSidebar::settingsRequested);
    new RowLayout(footer, {sidebarButtonInset, 0, sidebarButtonInset, 0}, 0, {settings, Stretch{}});
    return footer;
}

void WorkspaceSidebar::connectList()
{
    connect(m_list, &WorkspaceSidebarList::selected, this, &WorkspaceSidebar::selected);
    connect(m_list, &WorkspaceSidebarList::dropped, this, &WorkspaceSidebar::dropped);
    connect(m_list, &WorkspaceSidebarList::moveWorkspaceRequested, this,
            &WorkspaceSidebar::moveRequested);
    connect(m_list, &WorkspaceSidebarList::menuRequested, this, &WorkspaceSidebar::openRowMenu);
    connect(m_list, &WorkspaceSidebarList::startRequested, this,
            [this](const QUuid& id) { Q_EMIT chosen(WorkspaceAction::start, id); });
}

void WorkspaceSidebar::showWorkspaces(const QList<TrovellWorkspace*>& workspaces,
                                      const QUuid& selection)
{
    m_list->showWorkspaces(workspaces, selection);
}

void WorkspaceSidebar::openRowMenu(const QUuid& id, const QPoint& screenPoint, bool isByKeyboard)
{
    const Localization& words = m_environment.words;
    auto* menu = new QMenu(this);
    connect(menu, &QMenu::aboutToHide, m_list, &WorkspaceSidebarList::closeRowMenu);
    connect(menu, &QMenu::aboutToHide, menu, &QObject::deleteLater);
    const auto choose = [this, id](QAction* action, WorkspaceAction chosenAction) {
        connect(action, &QAction::triggered, this,
                [this, chosenAction, id] { Q_EMIT chosen(chosenAction, id); });
    };
    choose(menu->addAction(words.text(u"Start Workspace"_key)), WorkspaceAction::start);
    choose(menu->addAction(words.text(u"Edit Workspace"_key)), WorkspaceAction::edit);
    choose(menu->addAction(words.text(u"Save as New Workspace"_key)), WorkspaceAction::saveAsNew);
    choose(menu->addAction(words.text(u"Duplicate Workspace"_key)), WorkspaceAction::duplicate);
    menu->addSeparator();
    QAction* const remove = menu->addAction(words.text(u"Delete Workspace"_key));
    setDestructive(*remove);
    choose(remove, WorkspaceAction::remove);
    openMenu(*menu, screenPoint);
    if (isByKeyboard)
        menu->setActiveAction(menu->actions().first());
}

void WorkspaceSidebar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), m_environment.visual.color(ColorToken::sidebarBackground));
}

} // namespace trovell
