// SPDX-License-Identifier: MIT

#include "views/main/WorkspaceSidebarModel.h"

#include "model/StoreContext.h"
#include "model/WorkspaceChoices.h"

#include <utility>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

QString shortcutOf(const TrovellWorkspace& workspace, const Localization& words)
{
    const auto definition = workspace.shortcut();
    return definition ? words.text(displayName(*definition)) : QString();
}

} // namespace

WorkspaceSidebarModel::WorkspaceSidebarModel(const MainEnvironment& environment, QObject* parent)
    : RowModel(parent), m_environment(environment)
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

QUuid WorkspaceSidebarModel::idAt(const QModelIndex& index) const
{
    const TrovellWorkspace* workspace = m_workspaces.value(index.row());
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
    const TrovellWorkspace* workspace = m_workspaces.value(index.row());
    if (!workspace)
        return {};
    const Localization& words = m_environment.words;
    switch (role) {
    case Qt::DisplayRole:
        return workspace->name();
    case captionRole:
        return words.text(phrases::itemCount, workspace->itemCount());
    case trailingRole:
        return shortcutOf(*workspace, words);
    case symbolRole:
        return workspace->symbolName();
    default:
        return RowModel::data(index, role);
    }
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
