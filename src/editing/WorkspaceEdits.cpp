// SPDX-License-Identifier: MIT

#include "editing/WorkspaceEdits.h"

#include "model/StoreContext.h"

namespace trovell {

namespace {

Expected<void, EditingError> check(const EditedWorkspace& target, const WorkspaceEdits& edits,
                                   const StoreContext& context)
{
    if (target.isGone())
        return Unexpected<EditingError>(EditingError{EditingError::Kind::deletedWhileEditing});
    // Saving would delete the items that are not shown.
    if (!target.isComplete)
        return Unexpected<EditingError>(EditingError{EditingError::Kind::itemsUnreadable});
    return checkShortcut(edits.basics.choices, target.workspace, context);
}

WorkspaceLayout replacedLayout(const EditedWorkspace& target, const WorkspaceEdits& edits)
{
    WorkspaceLayout layout = layoutOf(edits.capturedApplications,
                                      target.workspace ? target.workspace->placementsInOrder()
                                                       : QList<WindowPlacement*>());
    layout.kept = keptPlacementIDs(edits.retainedPlacements);
    return layout;
}

std::optional<WorkspaceLayout> changedLayout(const EditedWorkspace& target,
                                             const WorkspaceEdits& edits)
{
    switch (edits.layoutChange) {
    case LayoutChange::none:
        return {};
    case LayoutChange::clearLayout:
        return WorkspaceLayout();
    case LayoutChange::replaceLayout:
        return replacedLayout(target, edits);
    }
    Q_UNREACHABLE();
}

} // namespace

EditedWorkspace::EditedWorkspace(TrovellWorkspace* workspaceOrNull)
    : workspace(workspaceOrNull), isNew(!workspaceOrNull)
{
    if (isNew)
        return;
    edits.basics = {workspace->name(), choicesOf(*workspace)};
    for (const WorkspaceItem* item : workspace->sortedItems())
        edits.items.append(editableItem(*item));
    for (const WindowPlacement* placement : workspace->sortedPlacements())
        edits.placements.append(editablePlacement(*placement));
    isComplete = edits.items.size() == workspace->itemCount();
}

bool EditedWorkspace::isGone() const
{
    return !isNew && (!workspace || workspace->isRemoved());
}

Expected<TrovellWorkspace*, EditingError>
saveEdits(const EditedWorkspace& target, const WorkspaceEdits& edits, StoreContext& context)
{
    if (const auto checked = check(target, edits, context); !checked)
        return Unexpected<EditingError>(checked.error());
    return saveChange({edits.basics, edits.items, edits.placements, changedLayout(target, edits)},
                      target.workspace, context);
}

} // namespace trovell
