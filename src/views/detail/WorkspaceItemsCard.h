// SPDX-License-Identifier: MIT
//
// The card that lists a workspace's launch items. Main thread.
#pragma once

#include "model/WorkspaceItem.h"
#include "views/shared/ViewEnvironment.h"
#include "views/style/TrovellCardModifier.h"

#include <QList>

class QVBoxLayout;

namespace trovell {

class NoItemsView;
class WorkspaceItemRow;

/// Keeps its rows from one list to the next, and fills a long list over several turns of the event
/// loop so that it never holds up the interface.
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
    void fillRows();
    void fillRow(qsizetype index);
    void showTexts();

    ViewEnvironment m_environment;
    QVBoxLayout* m_column;
    NoItemsView* m_noItems;
    QList<WorkspaceItemValues> m_items;
    /// No more than there are items.
    QList<WorkspaceItemRow*> m_rows;
    /// How many rows show their item.
    qsizetype m_filledCount = 0;
    bool m_isFilling = false;
};

} // namespace trovell
