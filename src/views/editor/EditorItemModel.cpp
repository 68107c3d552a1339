// SPDX-License-Identifier: MIT

#include "views/editor/EditorItemModel.h"

#include "editing/Reorder.h"

namespace trovell {

int EditorItemModel::rowOf(const QUuid& id) const
{
    const auto found = std::ranges::find(m_items, id, &EditableWorkspaceItem::id);
    return found == m_items.end() ? -1 : static_cast<int>(found - m_items.begin());
}

void EditorItemModel::append(const QList<EditableWorkspaceItem>& items)
{
    if (items.isEmpty())
        return;
    beginInsertRows({}, rowCount(), rowCount() + static_cast<int>(items.size()) - 1);
    m_items.append(items);
    endInsertRows();
}

void EditorItemModel::remove(int row)
{
    beginRemoveRows({}, row, row);
    m_items.removeAt(row);
    endRemoveRows();
}

void EditorItemModel::move(int source, int target)
{
    if (source == target || std::min(source, target) < 0 || std::max(source, target) >= rowCount())
        return;
    // Refuses the place that the row has already: before its next one.
    if (!beginMoveRows({}, source, source, {}, target))
        return;
    moveBefore(m_items, source, target);
    endMoveRows();
}

QUuid EditorItemModel::idAt(const QModelIndex& index) const
{
    return index.isValid() ? m_items.at(index.row()).id : QUuid();
}

int EditorItemModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_items.size());
}

QVariant EditorItemModel::data(const QModelIndex& index, int role) const
{
    return role == Qt::DisplayRole ? m_items.at(index.row()).displayName
                                   : RowModel::data(index, role);
}

} // namespace trovell
