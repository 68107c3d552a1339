// SPDX-License-Identifier: MIT
//
// The list of workspaces in the sidebar. Main thread.
#pragma once

#include "views/main/WorkspaceSidebarModel.h"
#include "views/shared/RowList.h"

namespace trovell {

/// Up and Down select; Alt+Up and Alt+Down move the selected workspace; Return and a double click
/// start.
class WorkspaceSidebarList : public RowList {
    Q_OBJECT

public:
    explicit WorkspaceSidebarList(const MainEnvironment& environment, QWidget* parent = nullptr);

    /// `selection` may be null or name none of them, which selects nothing.
    void showWorkspaces(const QList<TrovellWorkspace*>& workspaces, const QUuid& selection);

Q_SIGNALS:
    void selected(const QUuid& id);
    void startRequested(const QUuid& id);
    /// Where the menu's corner goes on the screen. The row counts as hovered until `closeRowMenu`.
    void menuRequested(const QUuid& id, const QPoint& screenPoint, bool isByKeyboard);
    /// Neither needs to be one of the list's by now.
    void dropped(const QUuid& dragged, const QUuid& target);
    void moveWorkspaceRequested(const QUuid& id, int step);

public Q_SLOTS:
    void closeRowMenu() { setMarkedRow({}); }

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void showWords();

    const MainEnvironment m_environment;
    WorkspaceSidebarModel* m_model;
    QUuid m_shownSelection;
};

} // namespace trovell
