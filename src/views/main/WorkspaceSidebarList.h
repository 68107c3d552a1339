// SPDX-License-Identifier: MIT
//
// The list of workspaces in the sidebar: rows are painted, not widgets, so that a thousand of them
// scroll as smoothly as ten. Main thread.
#pragma once

#include "views/main/WorkspaceSidebarModel.h"
#include "views/shared/RowDragging.h"

#include <QListView>

namespace trovell {

/// Up and Down select; Alt+Up and Alt+Down move the selected workspace; Return and a double click
/// start. A click selects when the button is released, so that dragging a row leaves the selection
/// alone.
class WorkspaceSidebarList : public QListView, private ReorderableRows {
    Q_OBJECT

public:
    explicit WorkspaceSidebarList(const MainEnvironment& environment, QWidget* parent = nullptr);

    /// `selection` may be null or name none of them, which selects nothing.
    void showWorkspaces(const QList<TrovellWorkspace*>& workspaces, const QUuid& selection);

    /// The visible row in the viewport's coordinates, without the gaps around it.
    [[nodiscard]] QRect rowRect(const QModelIndex& index) const;

Q_SIGNALS:
    void selected(const QUuid& id);
    void startRequested(const QUuid& id);
    /// Where the menu's corner goes on the screen. The row counts as hovered until `closeRowMenu`.
    void menuRequested(const QUuid& id, const QPoint& screenPoint, bool isByKeyboard);
    /// Neither needs to be one of the list's by now.
    void dropped(const QUuid& dragged, const QUuid& target);
    void moveRequested(const QUuid& id, int step);

public Q_SLOTS:
    void closeRowMenu();

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;
    void keyPressEvent(QKeyEvent* event) override;
    // What of the mouse RowDragging leaves selects nothing.
    void mousePressEvent(QMouseEvent*) override {}
    void mouseMoveEvent(QMouseEvent*) override {}
    void mouseReleaseEvent(QMouseEvent*) override {}
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    friend class WorkspaceSidebarDelegate;

    [[nodiscard]] QUuid rowAt(const QPoint& position) const override;
    [[nodiscard]] QRect rectOf(const QUuid& id) const override;
    [[nodiscard]] QPixmap pictureOf(const QUuid& id) const override;
    void setLifted(const QUuid& id, bool isLifted) override;
    void dropOn(const QUuid& target, const QUuid& dragged) override;
    void click(const QUuid& id) override;

    void showWords();
    bool moveByKey(const QKeyEvent& event);

    const MainEnvironment m_environment;
    WorkspaceSidebarModel* m_model;
    QUuid m_liftedRow;
    QPersistentModelIndex m_menuRow;
    QUuid m_shownSelection;
    RowDragging m_dragging;
};

} // namespace trovell
