// SPDX-License-Identifier: MIT
//
// The menu behind the program's icon in the desktop's panel. Main thread.
#pragma once

#include "views/shared/ViewEnvironment.h"

#include <QMenu>
#include <QObject>
#include <QUuid>

namespace trovell {

class UpdateController;
class WorkspaceLauncher;
class WorkspaceQuery;
class WorkspaceStart;

struct MenuBarEnvironment : ViewEnvironment {
    WorkspaceQuery& workspaces;
    const WorkspaceStart& startWorkspace;
    UpdateController& updateController;
    WorkspaceLauncher& launcher;
};

/// A plain menu in the desktop's own rendering, which may take place in another process: what it
/// shows is in its actions alone. The menu follows the store, the launcher, the language and the
/// appearance, and looks at the store once more when it is about to be shown.
class MenuBarWorkspaceView : public QObject {
    Q_OBJECT

public:
    explicit MenuBarWorkspaceView(const MenuBarEnvironment& environment, QObject* parent = nullptr);

    /// For the icon's context menu; lives as long as this object.
    [[nodiscard]] QMenu* menu() { return &m_menu; }

Q_SIGNALS:
    /// Also means to bring the application to the front.
    void openMainWindowRequested();
    void settingsRequested();
    void quitRequested();

private:
    /// A workspace as the menu shows it.
    struct Line {
        QUuid id;
        QString text;
        QString symbolName;

        bool operator==(const Line&) const = default;
    };

    [[nodiscard]] QList<Line> linesOfStore() const;
    void rebuild();
    void followStore();
    void addWorkspaces();
    void addCommands();
    void start(const QUuid& id) const;

    MenuBarEnvironment m_environment;
    QMenu m_menu;
    QList<Line> m_lines;
    bool m_canPutBack = false;
};

} // namespace trovell
