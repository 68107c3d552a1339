// SPDX-License-Identifier: MIT

#include "views/editor/EditorItemList.h"

#include "editing/Reorder.h"
#include "views/editor/EditorItemRow.h"
#include "views/shared/ReorderOverlay.h"
#include "views/style/RowPainting.h"

#include <QEvent>
#include <QGraphicsOpacityEffect>
#include <QScrollArea>
#include <QShortcut>
#include <QTimer>
#include <QTimerEvent>

namespace trovell {

namespace {

// As many as the sheet shows without scrolling are there when it opens.
constexpr qsizetype rowsAtOnce = 12;
// A turn stays far below the time of one frame.
constexpr qsizetype rowsPerTurn = 8;

} // namespace

EditorItemList::EditorItemList(const ViewEnvironment& environment,
                               const QList<EditableWorkspaceItem>& items, QWidget* tabAnchor,
                               QWidget* parent)
    : ListGroup(parent), m_environment(environment), m_items(items), m_tabAnchor(tabAnchor),
      m_dragging(environment.visual, *this, *this)
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    const std::pair<Qt::Key, int> keys[] = {{Qt::Key_Up, -1}, {Qt::Key_Down, 1}};
    for (const auto& [key, step] : keys) {
        auto* shortcut = new QShortcut(QKeySequence(Qt::ALT | key), this);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, this, [this, step] { moveFocusedRow(step); });
    }
    while (m_rows.size() < std::min(rowsAtOnce, m_items.size()))
        buildSomeRows();
}

EditorItemList::~EditorItemList() = default;

const EditableWorkspaceItem* EditorItemList::item(const QUuid& id) const
{
    const qsizetype index = indexOf(id);
    return index < 0 ? nullptr : &m_items[index];
}

void EditorItemList::append(const QList<EditableWorkspaceItem>& items)
{
    m_items.append(items);
    buildSomeRows();
    updateGeometry();
    Q_EMIT countChanged();
    // Once the page around has grown.
    QTimer::singleShot(0, this, &EditorItemList::revealEnd);
}

void EditorItemList::revealEnd()
{
    constexpr int space = 24;
    auto* const area = qobject_cast<QScrollArea*>(scrollAreaOf(*this));
    if (area && !m_rows.isEmpty())
        area->ensureWidgetVisible(m_rows.last(), 0, space);
}

void EditorItemList::replace(const EditableWorkspaceItem& item)
{
    const qsizetype index = indexOf(item.id);
    if (index < 0)
        return;
    m_items[index] = item;
    if (index < m_rows.size())
        m_rows[index]->setItem(item);
}

void EditorItemList::remove(const QUuid& id)
{
    const qsizetype index = indexOf(id);
    if (index < 0)
        return;
    m_items.removeAt(index);
    if (index < m_rows.size()) {
        EditorItemRow* const row = m_rows.takeAt(index);
        const bool hadFocus = row->isAncestorOf(window()->focusWidget());
        row->hide();
        row->deleteLater();
        if (hadFocus && !m_rows.isEmpty())
            m_rows[std::min(index, m_rows.size() - 1)]->focusRemoveButton();
        else if (hadFocus && m_tabAnchor)
            m_tabAnchor->setFocus(Qt::TabFocusReason);
    }
    placeRows();
    updateGeometry();
    Q_EMIT countChanged();
}

QUuid EditorItemList::rowAt(const QPoint& position) const
{
    const auto* const row =
        rect().contains(position) ? m_rows.value(position.y() / rowHeight()) : nullptr;
    return row ? row->id() : QUuid();
}

QRect EditorItemList::rectOf(const QUuid& id) const
{
    return rowOf(id) ? rowRect(indexOf(id)) : QRect();
}

QPixmap EditorItemList::pictureOf(const QUuid& id) const
{
    return pictureOfRow(*rowOf(id));
}

void EditorItemList::setLifted(const QUuid& id, bool isLifted)
{
    EditorItemRow* const row = rowOf(id);
    if (!row)
        return;
    auto* const faint = isLifted ? new QGraphicsOpacityEffect(row) : nullptr;
    if (faint)
        faint->setOpacity(draggedRowOpacity);
    row->setGraphicsEffect(faint);
}

void EditorItemList::dropOn(const QUuid& target, const QUuid& dragged)
{
    move(indexOf(dragged), indexOf(target));
}

QSize EditorItemList::sizeHint() const
{
    return {0, int(m_items.size()) * rowHeight()};
}

/// In the order of the items, so that the first rows stand for the first items.
void EditorItemList::buildSomeRows()
{
    const qsizetype end = std::min(m_rows.size() + rowsPerTurn, m_items.size());
    QWidget* previous = m_rows.isEmpty() ? m_tabAnchor.data() : nullptr;
    if (!m_rows.isEmpty())
        previous = m_rows.last()->lastControl();
    for (qsizetype index = m_rows.size(); index < end; ++index) {
        m_rows.append(makeRow(m_items[index]));
        previous = m_rows.last()->chainAfter(previous);
    }
    placeRows();
    if (m_rows.size() < m_items.size())
        m_building.start(0, this);
    else
        m_building.stop();
}

EditorItemRow* EditorItemList::makeRow(const EditableWorkspaceItem& item)
{
    auto* row = new EditorItemRow(m_environment, item, this);
    const QUuid id = item.id;
    connect(row, &EditorItemRow::enabledChanged, this, [this, id](bool isEnabled) {
        if (const qsizetype index = indexOf(id); index >= 0)
            m_items[index].isEnabled = isEnabled;
    });
    connect(row, &EditorItemRow::locateAgainRequested, this,
            [this, id] { Q_EMIT locateAgainRequested(id); });
    connect(row, &EditorItemRow::removeRequested, this, [this, id] { remove(id); });
    return row;
}

int EditorItemList::rowHeight() const
{
    return m_environment.visual.scaled(EditorItemRow::rowHeight);
}

QRect EditorItemList::rowRect(qsizetype index) const
{
    return {0, int(index) * rowHeight(), width(), rowHeight()};
}

void EditorItemList::placeRows()
{
    for (qsizetype index = 0; index < m_rows.size(); ++index) {
        m_rows[index]->setGeometry(rowRect(index));
        m_rows[index]->show();
    }
}

qsizetype EditorItemList::indexOf(const QUuid& id) const
{
    const auto found = std::find_if(m_items.begin(), m_items.end(),
                                    [&id](const auto& item) { return item.id == id; });
    return found == m_items.end() ? -1 : found - m_items.begin();
}

EditorItemRow* EditorItemList::rowOf(const QUuid& id) const
{
    return m_rows.value(indexOf(id));
}

void EditorItemList::move(qsizetype source, qsizetype target)
{
    // A row that is still to be made cannot change places with one that is there.
    if (std::max(source, target) >= m_rows.size() || !moveBefore(m_items, source, target))
        return;
    moveBefore(m_rows, source, target);
    const qsizetype first = std::min(source, target);
    QWidget* previous = first > 0 ? m_rows[first - 1]->lastControl() : m_tabAnchor.data();
    for (qsizetype index = first; index <= std::max(source, target); ++index)
        previous = m_rows[index]->chainAfter(previous);
    // Assistive tools read the rows in the order in which they lie above each other.
    for (EditorItemRow* const row : std::as_const(m_rows))
        row->raise();
    placeRows();
}

void EditorItemList::moveFocusedRow(int step)
{
    const auto focused = std::find_if(m_rows.begin(), m_rows.end(), [this](EditorItemRow* row) {
        return row->isAncestorOf(window()->focusWidget());
    });
    if (focused == m_rows.end())
        return;
    EditorItemRow* const row = *focused;
    const qsizetype index = focused - m_rows.begin();
    if (step < 0)
        move(index, index - 1);
    else
        move(index + 1, index);
    if (auto* const area = qobject_cast<QScrollArea*>(scrollAreaOf(*this)))
        area->ensureWidgetVisible(row, 0, rowHeight());
}

void EditorItemList::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    placeRows();
}

void EditorItemList::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::FontChange) {
        updateGeometry();
        placeRows();
    }
    QWidget::changeEvent(event);
}

void EditorItemList::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == m_building.timerId())
        buildSomeRows();
    else
        QWidget::timerEvent(event);
}

} // namespace trovell
