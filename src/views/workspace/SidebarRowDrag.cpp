#include "views/workspace/SidebarRowDrag.h"

#include "views/workspace/ReorderOverlay.h"
#include "views/workspace/WorkspaceSidebarList.h"

#include <QApplication>
#include <QScrollBar>
#include <QTimerEvent>

namespace trovell {

namespace {

constexpr int scrollEdge = 32;
constexpr int scrollStep = 10;
constexpr int scrollMilliseconds = 16;

} // namespace

SidebarRowDrag::SidebarRowDrag(const VisualStyle& visual, WorkspaceSidebarList& list)
    : m_visual(visual), m_list(list)
{
}

SidebarRowDrag::~SidebarRowDrag()
{
    delete m_overlay;
}

void SidebarRowDrag::press(const QModelIndex& row, const QPoint& position)
{
    m_row = row;
    m_pressed = position;
    m_grip = position - m_list.rowRect(row).topLeft();
}

void SidebarRowDrag::moveTo(const QPoint& position)
{
    if (!m_row.isValid()) {
        cancel();
        return;
    }
    m_position = position;
    if (!m_isDragging && (position - m_pressed).manhattanLength() >= qApp->startDragDistance())
        lift();
    if (m_isDragging)
        follow();
}

void SidebarRowDrag::cancel()
{
    m_row = QModelIndex();
    m_isDragging = false;
    m_scrolling.stop();
    delete m_overlay;
    m_list.viewport()->update();
}

void SidebarRowDrag::markDrop(const QModelIndex& row)
{
    const bool isElsewhere = row.isValid() && row != m_row;
    if (!isElsewhere && !m_overlay)
        return;
    std::optional<QRect> marked;
    if (isElsewhere) {
        marked = m_list.rowRect(row);
        marked->moveTopLeft(m_list.viewport()->mapTo(m_list.window(), marked->topLeft()));
    }
    overlay().setDropRow(marked);
}

void SidebarRowDrag::lift()
{
    m_isDragging = true;
    overlay().setLiftedRow(m_list.pictureOf(m_row));
    m_scrolling.start(scrollMilliseconds, this);
    m_list.viewport()->update();
}

void SidebarRowDrag::follow()
{
    overlay().moveLiftedRow(m_list.viewport()->mapTo(m_list.window(), m_position - m_grip));
    markDrop(m_list.indexAt(m_position));
}

ReorderOverlay& SidebarRowDrag::overlay()
{
    if (!m_overlay)
        m_overlay = new ReorderOverlay(m_visual, *m_list.window());
    return *m_overlay;
}

void SidebarRowDrag::timerEvent(QTimerEvent*)
{
    const int end = m_list.viewport()->height() - scrollEdge;
    const int direction = m_position.y() < scrollEdge ? -1 : m_position.y() > end ? 1 : 0;
    QScrollBar* bar = m_list.verticalScrollBar();
    const int before = bar->value();
    bar->setValue(before + direction * scrollStep);
    if (bar->value() != before)
        follow();
}

} // namespace trovell
