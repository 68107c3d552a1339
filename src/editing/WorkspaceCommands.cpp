// SPDX-License-Identifier: MIT

#include "editing/WorkspaceCommands.h"

#include "editing/Reorder.h"
#include "editing/WorkspaceChange.h"
#include "model/StoreContext.h"

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

using Workspaces = QList<TrovellWorkspace*>;
using Result = Expected<void, StoreError>;

WorkspaceValues copiedValues(const TrovellWorkspace& source, qint64 sortOrder)
{
    const QDateTime now = QDateTime::currentDateTimeUtc();
    return {.name = source.name() + u" Copy"_s,
            .symbolName = source.symbolName(),
            .accentIdentifier = source.accentIdentifier(),
            .sortOrder = sortOrder,
            .createdAt = now,
            .updatedAt = now};
}

// Not the records' own `duplicate`, which would read types and fingerprints and write them anew: a
// copy made here keeps what it cannot read.

std::unique_ptr<WorkspaceItem> copyOf(const WorkspaceItem& item)
{
    WorkspaceItemValues values = item.values();
    values.id = makeRecordId();
    values.createdAt = QDateTime::currentDateTimeUtc();
    return std::make_unique<WorkspaceItem>(std::move(values));
}

std::unique_ptr<WindowPlacement> copyOf(const WindowPlacement& placement)
{
    WindowPlacementValues values = placement.values();
    values.id = makeRecordId();
    return std::make_unique<WindowPlacement>(std::move(values));
}

qsizetype indexOf(const Workspaces& workspaces, const QUuid& id)
{
    const auto found = std::ranges::find(workspaces, id, &TrovellWorkspace::id);
    return found == workspaces.end() ? -1 : found - workspaces.begin();
}

Result renumber(StoreContext& context, const Workspaces& workspaces)
{
    const QDateTime now = QDateTime::currentDateTimeUtc();
    qint64 sortOrder = 0;
    for (TrovellWorkspace* workspace : workspaces) {
        workspace->setSortOrder(sortOrder++);
        workspace->setUpdatedAt(now);
    }
    return saveOrRollBack(context);
}

Expected<TrovellWorkspace*, StoreError> insert(StoreContext& context,
                                               std::unique_ptr<TrovellWorkspace> workspace)
{
    TrovellWorkspace& inserted = context.insert(std::move(workspace));
    return saveOrRollBack(context).map([&inserted] { return &inserted; });
}

} // namespace

Expected<TrovellWorkspace*, StoreError> createWorkspace(StoreContext& context, const QString& name)
{
    return insert(context, std::make_unique<TrovellWorkspace>(WorkspaceValues{.name = name}));
}

Expected<TrovellWorkspace*, StoreError> duplicateWorkspace(StoreContext& context,
                                                           const TrovellWorkspace& source)
{
    auto copy =
        std::make_unique<TrovellWorkspace>(copiedValues(source, context.workspaces().size()));
    for (const WorkspaceItem* item : source.sortedItems())
        copy->appendItem(copyOf(*item));
    for (const WindowPlacement* placement : source.sortedPlacements())
        copy->appendPlacement(copyOf(*placement));
    return insert(context, std::move(copy));
}

Result deleteWorkspace(StoreContext& context, TrovellWorkspace& workspace)
{
    context.remove(workspace);
    return saveOrRollBack(context);
}

Result clearSavedLayout(StoreContext& context, TrovellWorkspace& workspace)
{
    const QList<WindowPlacement*> placements = workspace.sortedPlacements();
    for (WindowPlacement* placement : placements)
        context.remove(*placement);
    workspace.setUpdatedAt(QDateTime::currentDateTimeUtc());
    return saveOrRollBack(context);
}

Result renameWorkspace(StoreContext& context, TrovellWorkspace& workspace, const QString& name)
{
    workspace.setName(name.trimmed());
    workspace.setUpdatedAt(QDateTime::currentDateTimeUtc());
    return saveOrRollBack(context);
}

Result moveWorkspace(StoreContext& context, const QUuid& dragged, const QUuid& target)
{
    Workspaces workspaces = context.workspaces();
    moveBefore(workspaces, indexOf(workspaces, dragged), indexOf(workspaces, target));
    return renumber(context, workspaces);
}

Result moveWorkspaceBy(StoreContext& context, const QUuid& id, int step)
{
    Workspaces workspaces = context.workspaces();
    const qsizetype place = indexOf(workspaces, id);
    const qsizetype newPlace = place + step;
    if (place < 0 || newPlace < 0 || newPlace >= workspaces.size())
        return {};
    workspaces.move(place, newPlace);
    return renumber(context, workspaces);
}

} // namespace trovell
