// SPDX-License-Identifier: MIT

#include "model/WorkspaceQuery.h"

#include <utility>

namespace trovell {

namespace {

QList<QDateTime> updatesOf(const QList<TrovellWorkspace*>& workspaces)
{
    QList<QDateTime> updates;
    for (const TrovellWorkspace* workspace : workspaces)
        updates.append(workspace->updatedAt());
    return updates;
}

} // namespace

WorkspaceQuery::WorkspaceQuery(StoreContext& context)
    : m_context(context), m_workspaces(context.workspaces()), m_updates(updatesOf(m_workspaces))
{
    connect(&context, &StoreContext::changed, this, &WorkspaceQuery::scheduleUpdate);
}

TrovellWorkspace* WorkspaceQuery::find(const QUuid& id) const
{
    const QList<TrovellWorkspace*> all = workspaces();
    const auto found = std::ranges::find(all, id, &TrovellWorkspace::id);
    return found == all.end() ? nullptr : *found;
}

void WorkspaceQuery::scheduleUpdate()
{
    // A reorder writes every workspace; observers rebuild their lists once.
    if (!std::exchange(m_isUpdateScheduled, true))
        QMetaObject::invokeMethod(this, &WorkspaceQuery::update, Qt::QueuedConnection);
}

void WorkspaceQuery::update()
{
    m_isUpdateScheduled = false;
    const QList<TrovellWorkspace*> current = workspaces();
    const QList<QDateTime> updates = updatesOf(current);
    const bool isListChanged = std::exchange(m_workspaces, current) != current;
    const bool isUpdatedAtChanged = std::exchange(m_updates, updates) != updates;
    if (isListChanged)
        Q_EMIT listChanged();
    if (isUpdatedAtChanged)
        Q_EMIT updatedAtChanged();
}

} // namespace trovell
