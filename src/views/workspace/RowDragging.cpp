#include "views/workspace/RowDragging.h"

#include "views/style/RowPainting.h"
#include "views/workspace/ReorderOverlay.h"

#include <QApplication>
#include <QDropEvent>
#include <QGraphicsOpacityEffect>
#include <QMimeData>
#include <QMouseEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <QTimerEvent>

namespace trovell {

namespace {

constexpr int scrollEdge = 32;
constexpr int scrollStep = 10;
constexpr int scrollMilliseconds = 16;

/// What the overlay covers: the page that scrolls, so that the lifted row may leave its card.
QWidget& surfaceOf(QWidget& list)
{
    const QScrollArea* const area = scrollAreaOf(list);
    return area && area->widget() ? *area->widget() : *list.window();
}

} // namespace

QScrollArea* scrollAreaOf(const QWidget& widget)
{
    for (QWidget* parent = widget.parentWidget(); parent; parent = parent->parentWidget()) {
        if (auto* area = qobject_cast<QScrollArea*>(parent))
            return area;
    }
    return nullptr;
}

RowDragging::RowDragging(const VisualStyle& visual, QWidget& list, ReorderableRows& rows)
    : QObject(&list), m_visual(visual), m_list(list), m_rows(rows)
{
    list.setAcceptDrops(true);
    list.installEventFilter(this);
}

bool RowDragging::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        return press(*static_cast<QMouseEvent*>(event));
    case QEvent::MouseMove:
        return moveTo(*static_cast<QMouseEvent*>(event));
    case QEvent::MouseButtonRelease:
        return release(*static_cast<QMouseEvent*>(event));
    case QEvent::KeyPress:
        return pressKey(*static_cast<QKeyEvent*>(event));
    case QEvent::DragEnter:
    case QEvent::DragMove:
        return dragText(*static_cast<QDropEvent*>(event));
    case QEvent::Drop:
        return dropText(*static_cast<QDropEvent*>(event));
    case QEvent::DragLeave:
    case QEvent::Hide:
        end();
        return false;
    default:
        return QObject::eventFilter(watched, event);
    }
}

bool RowDragging::press(const QMouseEvent& event)
{
    if (event.button() != Qt::LeftButton || !m_rows.rowAt(event.position().toPoint()))
        return false;
    m_pressed = event.position().toPoint();
    return true;
}

bool RowDragging::moveTo(const QMouseEvent& event)
{
    const QPoint position = event.position().toPoint();
    const bool isFar =
        m_pressed && (position - *m_pressed).manhattanLength() >= QApplication::startDragDistance();
    if (!m_drag && isFar)
        begin();
    if (!m_drag)
        return false;
    m_drag->position = position;
    update();
    return true;
}

bool RowDragging::release(const QMouseEvent& event)
{
    m_pressed.reset();
    if (!m_drag || event.button() != Qt::LeftButton)
        return false;
    const QString payload = m_drag->payload;
    const QWidget* const target = m_rows.rowAt(event.position().toPoint());
    end();
    if (target)
        m_rows.dropOn(*target, payload);
    return true;
}

bool RowDragging::pressKey(const QKeyEvent& event)
{
    if (!m_drag)
        return false;
    if (event.key() == Qt::Key_Escape)
        end();
    // Nothing else is done with the keyboard while the mouse holds a row.
    return true;
}

bool RowDragging::dragText(QDropEvent& event)
{
    const QWidget* const row = m_rows.rowAt(event.position().toPoint());
    markDrop(row);
    event.setAccepted(row && event.mimeData()->hasText());
    if (event.isAccepted())
        event.acceptProposedAction();
    return true;
}

bool RowDragging::dropText(QDropEvent& event)
{
    const QWidget* const row = m_rows.rowAt(event.position().toPoint());
    end();
    event.setAccepted(row && m_rows.dropOn(*row, event.mimeData()->text()));
    return true;
}

void RowDragging::begin()
{
    QWidget* const row = m_rows.rowAt(*m_pressed);
    if (!row)
        return;
    m_drag = Drag{row, m_rows.payloadOf(*row), *m_pressed - row->pos(), *m_pressed};
    overlay().setLiftedRow(pictureOfRow(*row));
    auto* const faint = new QGraphicsOpacityEffect(row);
    faint->setOpacity(draggedRowOpacity);
    row->setGraphicsEffect(faint);
    // Escape must not reach the sheet, which it would close.
    m_list.grabKeyboard();
    m_scrolling.start(scrollMilliseconds, this);
}

void RowDragging::end()
{
    m_pressed.reset();
    delete m_overlay;
    if (!m_drag)
        return;
    m_scrolling.stop();
    m_list.releaseKeyboard();
    if (m_drag->row)
        m_drag->row->setGraphicsEffect(nullptr);
    m_drag.reset();
}

void RowDragging::update()
{
    QWidget* const surface = overlay().parentWidget();
    overlay().moveLiftedRow(m_list.mapTo(surface, m_drag->position - m_drag->grip));
    markDrop(m_rows.rowAt(m_drag->position));
}

void RowDragging::markDrop(const QWidget* row)
{
    const bool isElsewhere = row && !(m_drag && m_drag->row == row);
    if (!isElsewhere && !m_overlay)
        return;
    const QPoint corner = row ? row->mapTo(overlay().parentWidget(), QPoint()) : QPoint();
    overlay().setDropRow(isElsewhere ? std::optional(QRect(corner, row->size())) : std::nullopt);
}

ReorderOverlay& RowDragging::overlay()
{
    if (!m_overlay)
        m_overlay = new ReorderOverlay(m_visual, surfaceOf(m_list));
    return *m_overlay;
}

void RowDragging::timerEvent(QTimerEvent*)
{
    QScrollArea* const area = scrollAreaOf(m_list);
    if (!area || !m_drag)
        return;
    const int y = m_list.mapTo(area->widget(), m_drag->position).y() + area->widget()->y();
    const int direction = y < scrollEdge ? -1 : y > area->viewport()->height() - scrollEdge ? 1 : 0;
    const int before = area->verticalScrollBar()->value();
    area->verticalScrollBar()->setValue(before + direction * scrollStep);
    const int scrolled = area->verticalScrollBar()->value() - before;
    if (scrolled == 0)
        return;
    m_drag->position.ry() += scrolled;
    update();
}

} // namespace trovell
