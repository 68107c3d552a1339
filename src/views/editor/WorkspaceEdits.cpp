// SPDX-License-Identifier: MIT

#include "views/editor/WorkspaceEdits.h"

#include "model/StoreContext.h"
#include "support/TextKey.h"
#include "views/capture/CaptureDraft.h"
#include "views/shared/StoreWriting.h"

namespace trovell {

namespace {

/// Why nothing can be saved; empty when it can.
Message objection(const EditedWorkspace& target, const WorkspaceEdits& edits,
                  const StoreContext& context)
{
    if (target.isGone())
        return u"This workspace was deleted while you were editing it. Nothing was saved."_key;
    const auto shortcut = edits.choices.shortcut();
    const auto editedId = target.workspace ? std::optional(target.workspace->id()) : std::nullopt;
    if (shortcut && shortcutConflict(*shortcut, editedId, context.workspaces()))
        return shortcutConflictText();
    // Saving would delete the items that are not shown.
    if (!target.isComplete)
        return u"The items of this workspace could not be read. Close the editor and try again."_key;
    return {};
}

std::unique_ptr<TrovellWorkspace> makeWorkspace(const StoreContext& context)
{
    return std::make_unique<TrovellWorkspace>(
        WorkspaceValues{.sortOrder = context.workspaces().size()});
}

void writeBasics(TrovellWorkspace& workspace, const WorkspaceEdits& edits)
{
    workspace.setName(edits.trimmedName());
    workspace.setSymbolName(edits.choices.symbolName);
    workspace.setAccentIdentifier(edits.choices.accentIdentifier);
    workspace.setShortcut(edits.choices.shortcut());
    workspace.setUpdatedAt(QDateTime::currentDateTimeUtc());
}

void replaceItems(TrovellWorkspace& workspace, const QList<EditableWorkspaceItem>& items,
                  StoreContext& context)
{
    for (WorkspaceItem* item : workspace.sortedItems())
        context.remove(*item);
    for (qsizetype position = 0; position < items.size(); ++position)
        workspace.appendItem(makeWorkspaceItem(items[position], position));
}

void writeLayout(TrovellWorkspace& workspace, const WorkspaceEdits& edits, StoreContext& context)
{
    if (edits.layoutChange == LayoutChange::none)
        return;
    for (WindowPlacement* placement : workspace.sortedPlacements())
        context.remove(*placement);
    if (edits.layoutChange == LayoutChange::clearLayout)
        return;
    for (const CapturedWindow& window : includedWindows(edits.capturedApplications))
        workspace.appendPlacement(makePlacement(window));
}

} // namespace

EditedWorkspace::EditedWorkspace(TrovellWorkspace* workspaceOrNull)
    : workspace(workspaceOrNull), isNew(!workspaceOrNull)
{
    if (isNew)
        return;
    edits.name = workspace->name();
    edits.choices = choicesOf(*workspace);
    for (const WorkspaceItem* item : workspace->sortedItems())
        edits.items.append(editableItem(*item));
    isComplete = edits.items.size() == workspace->itemCount();
}

bool EditedWorkspace::isGone() const
{
    return !isNew && (!workspace || workspace->isRemoved());
}

Expected<TrovellWorkspace*, Message> saveEdits(const EditedWorkspace& target,
                                               const WorkspaceEdits& edits, StoreContext& context)
{
    if (const Message reason = objection(target, edits, context); !reason.isEmpty())
        return Unexpected<Message>(reason);
    std::unique_ptr<TrovellWorkspace> made = target.isNew ? makeWorkspace(context) : nullptr;
    TrovellWorkspace* const workspace = made ? made.get() : target.workspace.data();
    writeBasics(*workspace, edits);
    replaceItems(*workspace, edits.items, context);
    writeLayout(*workspace, edits, context);
    if (made)
        context.insert(std::move(made));
    if (auto saved = saveOrRollBack(context); !saved)
        return Unexpected<Message>(saved.error());
    return workspace;
}

} // namespace trovell
