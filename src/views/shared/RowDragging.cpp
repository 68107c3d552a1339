// SPDX-License-Identifier: MIT

#include "views/shared/RowDragging.h"

#include "views/shared/ReorderOverlay.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <QTimerEvent>

#include <utility>

namespace trovell {

namespace {

constexpr int scrollEdge = 32;
constexpr int scrollStep = 10;
constexpr int scrollMilliseconds = 16;

/// What the overlay covers: the page that scrolls, so that the lifted row may leave its card.
QWidget& surfaceOf(QWidget& list)
{
    const auto* const area = qobject_cast<QScrollArea*>(scrollAreaOf(list));
    return area && area->widget() ? *area->widget() : *list.window();
}

} // namespace

QAbstractScrollArea* scrollAreaOf(const QWidget& widget)
{
    for (QWidget* parent = widget.parentWidget(); parent; parent = parent->parentWidget()) {
        if (auto* area = qobject_cast<QAbstractScrollArea*>(parent))
            return area;
    }
    return nullptr;
}

RowDragging::RowDragging(const VisualStyle& visual, QWidget& list, ReorderableRows& rows)
    : m_visual(visual), m_list(list), m_rows(rows)
{
    list.setAcceptDrops(true);
    list.installEventFilter(this);
}

RowDragging::~RowDragging()
{
    delete m_overlay;
    if (m_isDragging)
        m_list.releaseKeyboard();
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
    const QPoint position = event.position().toPoint();
    const QUuid row = m_rows.rowAt(position);
    if (event.button() != Qt::LeftButton || row.isNull())
        return false;
    m_pressed = {row, position, position - m_rows.rectOf(row).topLeft(),
                 event.globalPosition().toPoint()};
    return true;
}

bool RowDragging::moveTo(const QMouseEvent& event)
{
    if (!m_pressed)
        return false;
    m_pressed->screenPosition = event.globalPosition().toPoint();
    const int distance = (event.position().toPoint() - m_pressed->position).manhattanLength();
    if (!m_isDragging && distance >= QApplication::startDragDistance())
        begin();
    if (m_isDragging)
        update();
    return true;
}

bool RowDragging::release(const QMouseEvent& event)
{
    if (!m_pressed || event.button() != Qt::LeftButton)
        return false;
    const QUuid row = m_pressed->row;
    const QUuid target = m_rows.rowAt(event.position().toPoint());
    const bool isDrop = m_isDragging;
    end();
    if (isDrop && !target.isNull())
        m_rows.dropOn(target, row);
    else if (!isDrop && target == row)
        m_rows.click(row);
    return true;
}

bool RowDragging::pressKey(const QKeyEvent& event)
{
    if (!m_isDragging)
        return false;
    if (event.key() == Qt::Key_Escape)
        end();
    // Nothing else is done with the keyboard while the mouse holds a row.
    return true;
}

bool RowDragging::dragText(QDropEvent& event)
{
    const QUuid row = m_rows.rowAt(event.position().toPoint());
    markDrop(row);
    event.setAccepted(!row.isNull() && event.mimeData()->hasText());
    if (event.isAccepted())
        event.acceptProposedAction();
    return true;
}

bool RowDragging::dropText(QDropEvent& event)
{
    const QUuid row = m_rows.rowAt(event.position().toPoint());
    const QUuid dragged = QUuid::fromString(event.mimeData()->text());
    end();
    event.setAccepted(!row.isNull() && !dragged.isNull());
    if (event.isAccepted())
        m_rows.dropOn(row, dragged);
    return true;
}

void RowDragging::begin()
{
    m_isDragging = true;
    overlay().setLiftedRow(m_rows.pictureOf(m_pressed->row));
    m_rows.setLifted(m_pressed->row, true);
    // Escape must not reach the window, which might close.
    m_list.grabKeyboard();
    m_scrolling.start(scrollMilliseconds, this);
}

void RowDragging::end()
{
    delete m_overlay;
    const std::optional<Pressed> pressed = std::exchange(m_pressed, std::nullopt);
    if (!std::exchange(m_isDragging, false))
        return;
    m_scrolling.stop();
    m_list.releaseKeyboard();
    m_rows.setLifted(pressed->row, false);
}

void RowDragging::update()
{
    if (m_rows.rectOf(m_pressed->row).isEmpty())
        return end();
    const QPoint position = m_list.mapFromGlobal(m_pressed->screenPosition);
    overlay().moveLiftedRow(m_list.mapTo(overlay().parentWidget(), position - m_pressed->grip));
    markDrop(m_rows.rowAt(position));
}

void RowDragging::markDrop(const QUuid& row)
{
    const bool isElsewhere = !row.isNull() && !(m_isDragging && m_pressed->row == row);
    if (!isElsewhere && !m_overlay)
        return;
    std::optional<QRect> marked;
    if (isElsewhere) {
        marked = m_rows.rectOf(row);
        marked->moveTopLeft(m_list.mapTo(overlay().parentWidget(), marked->topLeft()));
    }
    overlay().setDropRow(marked);
}

ReorderOverlay& RowDragging::overlay()
{
    if (!m_overlay)
        m_overlay = new ReorderOverlay(m_visual, surfaceOf(m_list));
    return *m_overlay;
}

void RowDragging::timerEvent(QTimerEvent*)
{
    const QAbstractScrollArea* const area = scrollAreaOf(m_list);
    if (!area || !m_isDragging)
        return;
    const int y = area->viewport()->mapFromGlobal(m_pressed->screenPosition).y();
    const int direction = y < scrollEdge ? -1 : y > area->viewport()->height() - scrollEdge ? 1 : 0;
    QScrollBar* const bar = area->verticalScrollBar();
    const int before = bar->value();
    bar->setValue(before + direction * scrollStep);
    if (bar->value() != before)
        update();
}

} // namespace trovell
