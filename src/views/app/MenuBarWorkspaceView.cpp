// SPDX-License-Identifier: MIT

#include "views/app/MenuBarWorkspaceView.h"

#include "editing/WorkspaceStart.h"
#include "launch/WorkspaceLauncher.h"
#include "model/WorkspaceChoices.h"
#include "model/WorkspaceQuery.h"
#include "services/update/UpdateController.h"
#include "views/app/SymbolIcon.h"

#include <algorithm>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

/// In the text of an action an ampersand marks a letter and a tab begins the second column.
QString literally(QString text)
{
    return text.replace(u'\t', u' ').replace(u'&', u"&&"_s);
}

} // namespace

MenuBarWorkspaceView::MenuBarWorkspaceView(const MenuBarEnvironment& environment, QObject* parent)
    : QObject(parent), m_environment(environment)
{
    m_environment.words.render(this, [this] { rebuild(); });
    const auto follow = &MenuBarWorkspaceView::followStore;
    connect(&environment.workspaces, &WorkspaceQuery::listChanged, this, follow);
    connect(&environment.workspaces, &WorkspaceQuery::updatedAtChanged, this, follow);
    connect(&m_menu, &QMenu::aboutToShow, this, follow);
    connect(&environment.launcher, &WorkspaceLauncher::isLaunchingChanged, this, follow);
    connect(&environment.visual, &VisualStyle::appearanceChanged, this,
            &MenuBarWorkspaceView::rebuild);
}

QList<MenuBarWorkspaceView::Line> MenuBarWorkspaceView::linesOfStore() const
{
    QList<Line> lines;
    for (const TrovellWorkspace* workspace : m_environment.workspaces.workspaces()) {
        QString text = literally(workspace->name());
        if (const auto shortcut = workspace->shortcut())
            text += u'\t' + m_environment.words.text(displayName(*shortcut));
        lines.append({workspace->id(), text, workspace->symbolName()});
    }
    return lines;
}

// A menu that another process shows is sent to it anew each time: not without need.
void MenuBarWorkspaceView::followStore()
{
    if (linesOfStore() != m_lines || m_environment.launcher.canPutWindowsBack() != m_canPutBack)
        rebuild();
}

void MenuBarWorkspaceView::rebuild()
{
    m_lines = linesOfStore();
    m_canPutBack = m_environment.launcher.canPutWindowsBack();
    m_menu.clear();
    addWorkspaces();
    m_menu.addSeparator();
    addCommands();
}

void MenuBarWorkspaceView::addWorkspaces()
{
    if (m_lines.isEmpty())
        m_menu.addAction(m_environment.words.text(u"No workspaces yet"_key))->setEnabled(false);
    for (const Line& line : std::as_const(m_lines)) {
        QAction* action =
            m_menu.addAction(symbolIcon(m_environment.visual, line.symbolName), line.text);
        action->setIconVisibleInMenu(true);
        connect(action, &QAction::triggered, this, [this, id = line.id] { start(id); });
    }
}

void MenuBarWorkspaceView::addCommands()
{
    const Localization& words = m_environment.words;
    UpdateController* updates = &m_environment.updateController;
    if (m_canPutBack) {
        const QAction* putBack = m_menu.addAction(words.text(u"Put Windows Back"_key));
        connect(putBack, &QAction::triggered, this,
                [this] { m_environment.launcher.putWindowsBack(); });
    }
    const QAction* open = m_menu.addAction(words.text(u"Open Trovell"_key));
    connect(open, &QAction::triggered, this, &MenuBarWorkspaceView::openMainWindowRequested);
    QAction* check = m_menu.addAction(words.text(u"Check for Updates…"_key));
    check->setEnabled(updates->isConfigured());
    connect(check, &QAction::triggered, updates, &UpdateController::checkForUpdates);
    const QAction* settings = m_menu.addAction(words.text(u"Settings…"_key));
    connect(settings, &QAction::triggered, this, &MenuBarWorkspaceView::settingsRequested);
    m_menu.addSeparator();
    const QAction* quit = m_menu.addAction(words.text(u"Quit Trovell"_key));
    connect(quit, &QAction::triggered, this, &MenuBarWorkspaceView::quitRequested);
}

// The menu may have been open, or shown elsewhere, while the workspace was deleted.
void MenuBarWorkspaceView::start(const QUuid& id) const
{
    if (TrovellWorkspace* workspace = m_environment.workspaces.find(id))
        m_environment.startWorkspace(*workspace);
}

} // namespace trovell
