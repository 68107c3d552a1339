// SPDX-License-Identifier: MIT
//
// The sidebar of the main window: its head, the workspaces, and the way to the settings. Main
// thread.
#pragma once

#include "views/shared/ViewEnvironment.h"

#include <QUuid>
#include <QWidget>

namespace trovell {

class TrovellWorkspace;
class WorkspaceSidebarList;

/// Changes nothing but asks for everything; the ids are those of workspaces that were in the list.
class WorkspaceSidebar : public QWidget {
    Q_OBJECT

public:
    enum class Command { start, edit, saveAsNew, duplicate, remove };
    Q_ENUM(Command)

    explicit WorkspaceSidebar(const ViewEnvironment& environment, QWidget* parent = nullptr);

    /// `selection` is null while there are no workspaces.
    void showWorkspaces(const QList<TrovellWorkspace*>& workspaces, const QUuid& selection);

    [[nodiscard]] WorkspaceSidebarList* list() const { return m_list; }

Q_SIGNALS:
    void selected(const QUuid& id);
    void commandChosen(trovell::WorkspaceSidebar::Command command, const QUuid& id);
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

    const ViewEnvironment m_environment;
    WorkspaceSidebarList* m_list;
};

} // namespace trovell
