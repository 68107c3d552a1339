// SPDX-License-Identifier: MIT

#include "views/main/WorkspaceSidebarModel.h"

#include "model/StoreContext.h"
#include "views/main/WorkspaceSidebarRow.h"

#include <utility>

namespace trovell {

WorkspaceSidebarModel::WorkspaceSidebarModel(const MainEnvironment& environment, QObject* parent)
    : QAbstractListModel(parent), m_environment(environment)
{
    connect(&environment.context, &StoreContext::changed, this,
            &WorkspaceSidebarModel::scheduleContentUpdate);
    connect(&environment.words, &Localization::languageChanged, this,
            &WorkspaceSidebarModel::updateContents);
}

void WorkspaceSidebarModel::setWorkspaces(const QList<TrovellWorkspace*>& workspaces)
{
    const QList<QPointer<TrovellWorkspace>> rows(workspaces.begin(), workspaces.end());
    if (rows == m_workspaces)
        return;
    beginResetModel();
    m_workspaces = rows;
    endResetModel();
}

TrovellWorkspace* WorkspaceSidebarModel::workspaceAt(const QModelIndex& index) const
{
    return m_workspaces.value(index.row());
}

QUuid WorkspaceSidebarModel::idAt(const QModelIndex& index) const
{
    const TrovellWorkspace* workspace = workspaceAt(index);
    return workspace ? workspace->id() : QUuid();
}

QModelIndex WorkspaceSidebarModel::indexOf(const QUuid& id) const
{
    const auto found = std::ranges::find_if(
        m_workspaces, [&id](const auto& workspace) { return workspace && workspace->id() == id; });
    if (found == m_workspaces.end())
        return {};
    return index(static_cast<int>(found - m_workspaces.begin()));
}

int WorkspaceSidebarModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_workspaces.size());
}

QVariant WorkspaceSidebarModel::data(const QModelIndex& index, int role) const
{
    const TrovellWorkspace* workspace = workspaceAt(index);
    if (!workspace)
        return {};
    if (role == Qt::DisplayRole)
        return workspace->name();
    if (role == Qt::AccessibleTextRole)
        return WorkspaceSidebarRow(*workspace, m_environment.words).spokenText();
    return {};
}

void WorkspaceSidebarModel::scheduleContentUpdate()
{
    if (!std::exchange(m_isUpdateScheduled, true))
        QMetaObject::invokeMethod(this, &WorkspaceSidebarModel::updateContents,
                                  Qt::QueuedConnection);
}

void WorkspaceSidebarModel::updateContents()
{
    m_isUpdateScheduled = false;
    if (!m_workspaces.isEmpty())
        Q_EMIT dataChanged(index(0), index(rowCount() - 1));
}

} // namespace trovell
