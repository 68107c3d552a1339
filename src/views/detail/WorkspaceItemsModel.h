// SPDX-License-Identifier: MIT
//
// A workspace's launch items as rows for the detail view. Main thread.
#pragma once

#include "model/WorkspaceItem.h"
#include "views/shared/RowModel.h"
#include "views/shared/ViewEnvironment.h"

#include <QList>
#include <QSet>

namespace trovell {

class WorkspaceItemsModel : public RowModel {
    Q_OBJECT

public:
    WorkspaceItemsModel(const ViewEnvironment& environment, QObject* parent);

    /// In the order of the list. Records are read and not kept.
    void setItems(const QList<WorkspaceItem*>& items);

    /// Asks workers whether the items' resources are still where the items say, and marks the rows
    /// of those that are not. Calls while that goes on lead to one more look after it.
    void checkMissing();

    [[nodiscard]] QUuid idAt(const QModelIndex& index) const override;
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    struct Row {
        QUuid id;
        WorkspaceItemValues item;
        WorkspaceItemType type = WorkspaceItemType::application;
        bool isMissing = false;
    };

    void check(const QString& urlString);
    void showChanges();

    const ViewEnvironment m_environment;
    QList<Row> m_rows;
    /// The addresses that are being looked at.
    QSet<QString> m_checked;
    bool m_isCheckDue = false;
};

} // namespace trovell
