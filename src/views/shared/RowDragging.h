// SPDX-License-Identifier: MIT
//
// Reordering the rows of a list with the mouse: the row lifts, its place stays faint, a line marks
// where it will go, Escape gives up and the list scrolls at its edges. Texts dropped from elsewhere
// take the same way. Main thread.
#pragma once

#include <QBasicTimer>
#include <QObject>
#include <QPixmap>
#include <QPoint>
#include <QPointer>
#include <QRect>
#include <QUuid>

#include <optional>

class QAbstractScrollArea;
class QDropEvent;
class QKeyEvent;
class QMouseEvent;
class QWidget;

namespace trovell {

class ReorderOverlay;
class VisualStyle;

/// The list whose rows are dragged, each known by an identifier. Positions and rectangles are those
/// of the widget that is watched.
class ReorderableRows {
public:
    virtual ~ReorderableRows() = default;
    /// Null beside the rows.
    [[nodiscard]] virtual QUuid rowAt(const QPoint& position) const = 0;
    /// Empty when there is no such row, or no longer.
    [[nodiscard]] virtual QRect rectOf(const QUuid& row) const = 0;
    /// The row at rest, on nothing.
    [[nodiscard]] virtual QPixmap pictureOf(const QUuid& row) const = 0;
    /// The row is shown faint (`draggedRowOpacity`) while it is lifted. It may be gone.
    virtual void setLifted(const QUuid& row, bool isLifted) = 0;
    /// A row, not necessarily one of the list's, was dropped on one of its rows.
    virtual void dropOn(const QUuid& target, const QUuid& dragged) = 0;
    /// The row was pressed and let go without being dragged.
    virtual void click(const QUuid&) {}
};

/// The area that scrolls the widget; null when none does.
[[nodiscard]] QAbstractScrollArea* scrollAreaOf(const QWidget& widget);

/// Watches the events of the list, which its rows let through. No event loop of its own, as QDrag
/// would run.
class RowDragging : public QObject {
    Q_OBJECT

public:
    /// `rows` owns this object; `list` is the widget that shows them.
    RowDragging(const VisualStyle& visual, QWidget& list, ReorderableRows& rows);
    ~RowDragging() override;

    [[nodiscard]] bool isDragging() const { return m_isDragging; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    /// A row under the mouse, lifted or not yet.
    struct Pressed {
        QUuid row;
        QPoint position;
        /// From the row's corner to where it was taken.
        QPoint grip;
        /// Where the mouse is now, on the screen: rows and list move below it.
        QPoint screenPosition;
    };

    bool press(const QMouseEvent& event);
    bool moveTo(const QMouseEvent& event);
    bool release(const QMouseEvent& event);
    bool pressKey(const QKeyEvent& event);
    bool dragText(QDropEvent& event);
    bool dropText(QDropEvent& event);

    void begin();
    void end();
    void update();
    void markDrop(const QUuid& row);
    ReorderOverlay& overlay();

    const VisualStyle& m_visual;
    QWidget& m_list;
    ReorderableRows& m_rows;
    std::optional<Pressed> m_pressed;
    bool m_isDragging = false;
    QBasicTimer m_scrolling;
    QPointer<ReorderOverlay> m_overlay;
};

} // namespace trovell
