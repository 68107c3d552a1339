// SPDX-License-Identifier: MIT
//
// The card that lists a workspace's launch items. Main thread.
#pragma once

#include "views/shared/ViewEnvironment.h"
#include "views/style/TrovellCardModifier.h"

#include <QList>

namespace trovell {

class NoItemsView;
class RowList;
class WorkspaceItem;
class WorkspaceItemsModel;

class WorkspaceItemsCard : public TrovellCardModifier {
    Q_OBJECT

public:
    explicit WorkspaceItemsCard(const ViewEnvironment& environment, QWidget* parent = nullptr);

    /// In the order of the list. Records are read and not kept.
    void setItems(const QList<WorkspaceItem*>& items);

    /// Looks again for the resources of all items, on workers. Nothing while it is not shown.
    void checkMissing();

Q_SIGNALS:
    void editRequested();

private:
    QWidget* buildHeader();

    ViewEnvironment m_environment;
    NoItemsView* m_noItems;
    WorkspaceItemsModel* m_model;
    RowList* m_list;
};

} // namespace trovell
