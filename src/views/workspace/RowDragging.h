// Reordering the rows of a list with the mouse: the row lifts, its place stays faint, a line marks
// where it will go, Escape gives up and the page scrolls at its edges. Texts dropped from elsewhere
// take the same way. Main thread.
#pragma once

#include <QBasicTimer>
#include <QObject>
#include <QPoint>
#include <QPointer>

#include <optional>

class QDropEvent;
class QKeyEvent;
class QMouseEvent;
class QScrollArea;
class QWidget;

namespace trovell {

class ReorderOverlay;
class VisualStyle;

/// The list whose rows are dragged.
class ReorderableRows {
public:
    virtual ~ReorderableRows() = default;
    /// The row at that point of the list; null beside the rows.
    [[nodiscard]] virtual QWidget* rowAt(const QPoint& position) const = 0;
    /// What stands for a row while it is dragged.
    [[nodiscard]] virtual QString payloadOf(const QWidget& row) const = 0;
    /// A payload was dropped on a row. False for a text that is none.
    virtual bool dropOn(const QWidget& row, const QString& payload) = 0;
};

/// The area that scrolls the widget; null when none does.
[[nodiscard]] QScrollArea* scrollAreaOf(const QWidget& widget);

/// Watches the events of the list, which its rows let through. No event loop of its own, as QDrag
/// would run.
class RowDragging : public QObject {
    Q_OBJECT

public:
    /// `list` is the widget of `rows` and the parent of this object.
    RowDragging(const VisualStyle& visual, QWidget& list, ReorderableRows& rows);

    [[nodiscard]] bool isDragging() const { return m_drag.has_value(); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    struct Drag {
        QPointer<QWidget> row;
        QString payload;
        /// From the row's corner to where it was taken.
        QPoint grip;
        /// In the list's coordinates.
        QPoint position;
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
    void markDrop(const QWidget* row);
    ReorderOverlay& overlay();

    const VisualStyle& m_visual;
    QWidget& m_list;
    ReorderableRows& m_rows;
    std::optional<QPoint> m_pressed;
    std::optional<Drag> m_drag;
    QBasicTimer m_scrolling;
    QPointer<ReorderOverlay> m_overlay;
};

} // namespace trovell
