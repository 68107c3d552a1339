// SPDX-License-Identifier: MIT
//
// The sidebar of the main window: its head, the workspaces, and the way to the settings. Main
// thread.
#pragma once

#include "views/main/MainEnvironment.h"
#include "views/shared/WorkspaceAction.h"

#include <QUuid>
#include <QWidget>

namespace trovell {

class TrovellWorkspace;
class WorkspaceSidebarList;

/// Changes nothing but asks for everything; the ids are those of workspaces that were in the list.
class WorkspaceSidebar : public QWidget {
    Q_OBJECT

public:
    explicit WorkspaceSidebar(const MainEnvironment& environment, QWidget* parent = nullptr);

    /// `selection` is null while there are no workspaces.
    void showWorkspaces(const QList<TrovellWorkspace*>& workspaces, const QUuid& selection);

    [[nodiscard]] WorkspaceSidebarList* list() const { return m_list; }

Q_SIGNALS:
    void selected(const QUuid& id);
    void chosen(trovell::WorkspaceAction action, const QUuid& id);
    /// Dropped on `target`, which need not be another one.
    void dropped(const QUuid& dragged, const QUuid& target);
    /// To go `step` places down.
    void moveRequested(const QUuid& id, int step);
    void createRequested();
    void captureRequested();
    void settingsRequested();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QWidget* buildHeader();
    QWidget* buildFooter();
    void connectList();
    void openRowMenu(const QUuid& id, const QPoint& screenPoint, bool isByKeyboard);

    const MainEnvironment m_environment;
    WorkspaceSidebarList* m_list;
};

} // namespace trovell
