// SPDX-License-Identifier: MIT
//
// The launch items of the editor, in their order. Main thread.
#pragma once

#include "editing/EditableWorkspaceItem.h"
#include "views/shared/RowModel.h"

#include <QList>

namespace trovell {

class EditorItemModel : public RowModel {
    Q_OBJECT

public:
    EditorItemModel(const QList<EditableWorkspaceItem>& items, QObject* parent)
        : RowModel(parent), m_items(items)
    {
    }

    [[nodiscard]] const QList<EditableWorkspaceItem>& items() const { return m_items; }
    /// -1 when there is none.
    [[nodiscard]] int rowOf(const QUuid& id) const;

    void append(const QList<EditableWorkspaceItem>& items);
    void replace(int row, const EditableWorkspaceItem& item) { m_items[row] = item; }
    void setEnabled(int row, bool isEnabled) { m_items[row].isEnabled = isEnabled; }
    void remove(int row);
    /// As `moveBefore` does.
    void move(int source, int target);

    [[nodiscard]] QUuid idAt(const QModelIndex& index) const override;
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    QList<EditableWorkspaceItem> m_items;
};

} // namespace trovell
