// SPDX-License-Identifier: MIT
//
// A list of all workspaces that follows the store. Main thread only.
#pragma once

#include "model/StoreContext.h"

#include <QDateTime>
#include <QList>
#include <QObject>

namespace trovell {

/// Follows every change, saved or not. The list is current whenever it is asked for; the signals
/// come with the next turn of the event loop, once for all changes of the turn before, and before
/// any removed record is destroyed. Must not outlive its context.
class WorkspaceQuery final : public QObject {
    Q_OBJECT

public:
    explicit WorkspaceQuery(StoreContext& context);

    /// By `sortOrder`, those with equal ones in the order in which they were inserted.
    [[nodiscard]] QList<TrovellWorkspace*> workspaces() const { return m_context.workspaces(); }
    /// Null where there is none.
    [[nodiscard]] TrovellWorkspace* find(const QUuid& id) const;

Q_SIGNALS:
    /// Which workspaces there are, or their order.
    void listChanged();
    /// The list of their `updatedAt`: with every edit and start, and with every workspace that
    /// comes or goes. After `listChanged`.
    void updatedAtChanged();

private:
    void scheduleUpdate();
    void update();

    StoreContext& m_context;
    bool m_isUpdateScheduled = false;
    /// What was last announced; only ever compared, as records may be gone since.
    QList<TrovellWorkspace*> m_workspaces;
    QList<QDateTime> m_updates;
};

} // namespace trovell
