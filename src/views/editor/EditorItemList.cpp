// SPDX-License-Identifier: MIT

#include "views/editor/EditorItemList.h"

#include "views/editor/EditorItemRow.h"

#include <QScrollArea>
#include <QShortcut>
#include <QTimer>
#include <QTimerEvent>

namespace trovell {

namespace {

// As many as the sheet shows without scrolling are there when it opens.
constexpr int rowsAtOnce = 12;
// A turn stays far below the time of one frame.
constexpr int rowsPerTurn = 8;

} // namespace

EditorItemList::EditorItemList(const ViewEnvironment& environment,
                               const QList<EditableWorkspaceItem>& items, QWidget* tabAnchor,
                               QWidget* parent)
    : RowList(environment, {.height = EditorItemRow::rowHeight}, parent),
      m_environment(environment), m_model(new EditorItemModel(items, this)), m_tabAnchor(tabAnchor)
{
    setAccessibleRole(*this, QAccessible::List);
    setModel(m_model);
    setWholeHeight();
    setReorderable();
    setFocusPolicy(Qt::NoFocus);
    connect(m_model, &RowModel::dropped, this, [this](const QUuid& dragged, const QUuid& target) {
        move(m_model->rowOf(dragged), m_model->rowOf(target));
    });
    const std::pair<Qt::Key, int> keys[] = {{Qt::Key_Up, -1}, {Qt::Key_Down, 1}};
    for (const auto& [key, step] : keys) {
        auto* shortcut = new QShortcut(QKeySequence(Qt::ALT | key), this);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, this, [this, step] { moveFocusedRow(step); });
    }
    while (m_builtCount < std::min(rowsAtOnce, m_model->rowCount()))
        buildSomeRows();
}

const EditableWorkspaceItem* EditorItemList::item(const QUuid& id) const
{
    const int row = m_model->rowOf(id);
    return row < 0 ? nullptr : &items()[row];
}

void EditorItemList::append(const QList<EditableWorkspaceItem>& items)
{
    m_model->append(items);
    buildSomeRows();
    Q_EMIT countChanged();
    // Once the page around has grown.
    QTimer::singleShot(0, this, &EditorItemList::revealEnd);
}

void EditorItemList::revealEnd()
{
    constexpr int space = 24;
    QScrollArea* const area = pageAround();
    if (area && m_builtCount > 0)
        area->ensureWidgetVisible(controlsOf(m_builtCount - 1), 0, space);
}

void EditorItemList::replace(const EditableWorkspaceItem& item)
{
    const int row = m_model->rowOf(item.id);
    if (row < 0)
        return;
    m_model->replace(row, item);
    if (EditorItemRow* const controls = controlsOf(row))
        controls->setItem(item);
}

void EditorItemList::remove(const QUuid& id)
{
    const int row = m_model->rowOf(id);
    if (row < 0)
        return;
    const bool hadFocus = focusedRow() == row;
    m_builtCount -= row < m_builtCount ? 1 : 0;
    m_model->remove(row);
    if (hadFocus && m_builtCount > 0)
        controlsOf(std::min(row, m_builtCount - 1))->focusRemoveButton();
    else if (hadFocus && m_tabAnchor)
        m_tabAnchor->setFocus(Qt::TabFocusReason);
    Q_EMIT countChanged();
}

/// In the order of the items.
void EditorItemList::buildSomeRows()
{
    const int end = std::min(m_builtCount + rowsPerTurn, m_model->rowCount());
    QWidget* previous =
        m_builtCount == 0 ? m_tabAnchor.data() : controlsOf(m_builtCount - 1)->lastControl();
    for (; m_builtCount < end; ++m_builtCount) {
        EditorItemRow* const controls = makeRow(items()[m_builtCount]);
        setIndexWidget(m_model->index(m_builtCount), controls);
        previous = controls->chainAfter(previous);
    }
    if (m_builtCount < m_model->rowCount())
        m_building.start(0, this);
    else
        m_building.stop();
}

EditorItemRow* EditorItemList::makeRow(const EditableWorkspaceItem& item)
{
    auto* row = new EditorItemRow(m_environment, item, viewport());
    const QUuid id = item.id;
    connect(row, &EditorItemRow::enabledChanged, this, [this, id](bool isEnabled) {
        if (const int place = m_model->rowOf(id); place >= 0)
            m_model->setEnabled(place, isEnabled);
    });
    connect(row, &EditorItemRow::locateAgainRequested, this,
            [this, id] { Q_EMIT locateAgainRequested(id); });
    connect(row, &EditorItemRow::optionsRequested, this,
            [this, id] { Q_EMIT optionsRequested(id); });
    connect(row, &EditorItemRow::removeRequested, this, [this, id] { remove(id); });
    return row;
}

EditorItemRow* EditorItemList::controlsOf(int row) const
{
    return qobject_cast<EditorItemRow*>(indexWidget(m_model->index(row)));
}

int EditorItemList::focusedRow() const
{
    for (int row = 0; row < m_builtCount; ++row) {
        if (controlsOf(row)->isAncestorOf(window()->focusWidget()))
            return row;
    }
    return -1;
}

void EditorItemList::move(int source, int target)
{
    // A row whose controls are still to be made cannot change places with one that has them.
    if (std::min(source, target) < 0 || std::max(source, target) >= m_builtCount)
        return;
    m_model->move(source, target);
    scheduleDelayedItemsLayout();
    executeDelayedItemsLayout();
    const int first = std::min(source, target);
    QWidget* previous = first > 0 ? controlsOf(first - 1)->lastControl() : m_tabAnchor.data();
    for (int row = first; row <= std::max(source, target); ++row)
        previous = controlsOf(row)->chainAfter(previous);
}

void EditorItemList::moveFocusedRow(int step)
{
    const int row = focusedRow();
    if (row < 0)
        return;
    if (step < 0)
        move(row, row - 1);
    else
        move(row + 1, row);
    QScrollArea* const area = pageAround();
    if (area && focusedRow() >= 0)
        area->ensureWidgetVisible(controlsOf(focusedRow()), 0, EditorItemRow::rowHeight);
}

void EditorItemList::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == m_building.timerId())
        buildSomeRows();
    else
        RowList::timerEvent(event);
}

} // namespace trovell
