// SPDX-License-Identifier: MIT

#include "editing/WorkspaceChange.h"

#include "editing/CapturedChoice.h"
#include "editing/FormerPlacements.h"
#include "model/StoreContext.h"

#include <algorithm>

namespace trovell {

namespace {

void writeBasics(TrovellWorkspace& workspace, const WorkspaceBasics& basics)
{
    workspace.setName(basics.name.trimmed());
    workspace.setSymbolName(basics.choices.symbolName);
    workspace.setAccentIdentifier(basics.choices.accentIdentifier);
    workspace.setShortcut(basics.choices.shortcut());
}

void writeItems(TrovellWorkspace& workspace, const QList<EditableWorkspaceItem>& items,
                StoreContext& context)
{
    for (WorkspaceItem* item : workspace.sortedItems())
        context.remove(*item);
    for (qsizetype position = 0; position < items.size(); ++position)
        workspace.appendItem(makeWorkspaceItem(items[position], position));
}

void writePlacements(const TrovellWorkspace& workspace, const QList<EditablePlacement>& edited)
{
    const QList<WindowPlacement*> placements = workspace.placementsInOrder();
    for (const EditablePlacement& each : edited) {
        const auto found = std::ranges::find(placements, each.id, &WindowPlacement::id);
        if (found != placements.end())
            writeSwitches(each, **found);
    }
}

void writeLayout(TrovellWorkspace& workspace, WorkspaceLayout layout, StoreContext& context)
{
    for (WindowPlacement* placement : workspace.sortedPlacements()) {
        if (!layout.kept.contains(placement->id()))
            context.remove(*placement);
    }
    for (auto& placement : layout.added)
        workspace.appendPlacement(std::move(placement));
}

void keepSwitches(WindowPlacement& placement, const WindowPlacement& before,
                  const QList<WindowPlacement*>& former)
{
    placement.setRestoresDesktop(before.restoresDesktop());
    placement.setRestoresState(before.restoresState());
    const auto isSibling = [&before](const WindowPlacement* other) {
        return other->bundleIdentifier() == before.bundleIdentifier();
    };
    // Off without having been switched off: a single window, or one that remembers nothing.
    const bool wasOn = before.opensMissingWindow() || !before.values().windowStates ||
                       std::ranges::count_if(former, isSibling) < 2;
    placement.setOpensMissingWindow(placement.opensMissingWindow() && wasOn);
}

void write(TrovellWorkspace& workspace, WorkspaceChange change, StoreContext& context)
{
    if (change.basics)
        writeBasics(workspace, *change.basics);
    if (change.items)
        writeItems(workspace, *change.items, context);
    // A new layout takes over what was switched.
    if (!change.placements.isEmpty())
        writePlacements(workspace, change.placements);
    if (change.layout)
        writeLayout(workspace, std::move(*change.layout), context);
}

} // namespace

WorkspaceLayout layoutOf(const QList<CapturedApplication>& applications,
                         const QList<WindowPlacement*>& former)
{
    WorkspaceLayout layout;
    const auto formerly = formerPlacements(former, applications);
    for (const CapturedWindow& window : includedWindows(applications)) {
        auto& placement = layout.added.emplace_back(makePlacement(window));
        if (const WindowPlacement* before = formerly.value(window.id))
            keepSwitches(*placement, *before, former);
    }
    return layout;
}

Expected<void, EditingError> checkShortcut(const WorkspaceChoices& choices,
                                           const TrovellWorkspace* edited,
                                           const StoreContext& context)
{
    const auto shortcut = choices.shortcut();
    const auto editedId = edited ? std::optional(edited->id()) : std::nullopt;
    if (shortcut && shortcutConflict(*shortcut, editedId, context.workspaces()))
        return Unexpected<EditingError>(EditingError{EditingError::Kind::shortcutInUse});
    return {};
}

Expected<TrovellWorkspace*, EditingError>
saveChange(WorkspaceChange change, TrovellWorkspace* workspaceOrNull, StoreContext& context)
{
    const QDateTime now = QDateTime::currentDateTimeUtc();
    std::unique_ptr<TrovellWorkspace> made;
    if (!workspaceOrNull)
        made = std::make_unique<TrovellWorkspace>(
            WorkspaceValues{.sortOrder = context.workspaces().size(), .createdAt = now});
    TrovellWorkspace* const workspace = made ? made.get() : workspaceOrNull;
    write(*workspace, std::move(change), context);
    workspace->setUpdatedAt(now);
    if (made)
        context.insert(std::move(made));
    if (const auto saved = saveOrRollBack(context); !saved)
        return Unexpected<EditingError>(
            EditingError{.kind = EditingError::Kind::notStored, .storeError = saved.error()});
    return workspace;
}

Expected<void, StoreError> saveOrRollBack(StoreContext& context)
{
    auto saved = context.save();
    if (!saved)
        context.rollback();
    return saved;
}

} // namespace trovell
