// A row of the sidebar under the mouse: pressed, then lifted and carried over the others. Main
// thread.
#pragma once

#include <QBasicTimer>
#include <QObject>
#include <QPersistentModelIndex>
#include <QPoint>
#include <QPointer>

#include <optional>

namespace trovell {

class ReorderOverlay;
class VisualStyle;
class WorkspaceSidebarList;

/// Draws the lifted row and the drop line over the whole window and scrolls the list at its edges.
/// It runs no event loop, as QDrag would, and follows the rows if they change meanwhile.
class SidebarRowDrag : public QObject {
    Q_OBJECT

public:
    /// The list owns this object.
    SidebarRowDrag(const VisualStyle& visual, WorkspaceSidebarList& list);
    ~SidebarRowDrag() override;

    /// Positions are those of the list's viewport.
    void press(const QModelIndex& row, const QPoint& position);
    /// Lifts the row once the mouse has gone far enough.
    void moveTo(const QPoint& position);
    /// Ends it.
    void cancel();

    /// The row that was pressed, invalid when none is.
    [[nodiscard]] QModelIndex pressedRow() const { return m_row; }
    [[nodiscard]] bool isDragging() const { return m_isDragging; }

    /// Marks where something dragged from elsewhere would go; an invalid row marks nothing.
    void markDrop(const QModelIndex& row);

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    void lift();
    void follow();
    ReorderOverlay& overlay();

    const VisualStyle& m_visual;
    WorkspaceSidebarList& m_list;
    QPersistentModelIndex m_row;
    QPoint m_pressed;
    QPoint m_position;
    /// From the row's corner to where it was taken.
    QPoint m_grip;
    bool m_isDragging = false;
    QBasicTimer m_scrolling;
    QPointer<ReorderOverlay> m_overlay;
};

} // namespace trovell
