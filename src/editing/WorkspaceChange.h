// SPDX-License-Identifier: MIT
//
// The one way in which workspaces are written and saved. When a save fails, everything is as it was
// before. Main thread.
#pragma once

#include "editing/EditablePlacement.h"
#include "editing/EditableWorkspaceItem.h"
#include "editing/EditingError.h"
#include "model/WindowPlacement.h"
#include "model/WorkspaceChoices.h"
#include "support/Expected.h"
#include "windows/CapturedApplication.h"

#include <QSet>

#include <vector>

namespace trovell {

class StoreContext;

struct WorkspaceBasics {
    /// Stored without the white space around it.
    QString name = {};
    WorkspaceChoices choices = {};
};

struct WorkspaceLayout {
    /// Placements of the workspace that stay; the others go.
    QSet<QUuid> kept = {};
    /// New ones, in their order behind those that stay.
    std::vector<std::unique_ptr<WindowPlacement>> added = {};
};

/// What a save replaces; what is missing stays as it is.
struct WorkspaceChange {
    std::optional<WorkspaceBasics> basics = {};
    /// All items of the workspace, numbered from 0 by the save.
    std::optional<QList<EditableWorkspaceItem>> items = {};
    /// What was switched for placements that the workspace has.
    QList<EditablePlacement> placements = {};
    std::optional<WorkspaceLayout> layout = {};
};

/// The layout of the included windows of included applications, alone. What was switched off for
/// the windows that `former` holds stays off.
[[nodiscard]] WorkspaceLayout layoutOf(const QList<CapturedApplication>& applications,
                                       const QList<WindowPlacement*>& former);

/// Refuses a shortcut that another workspace has. `edited` is null for a new one.
[[nodiscard]] Expected<void, EditingError> checkShortcut(const WorkspaceChoices& choices,
                                                         const TrovellWorkspace* edited,
                                                         const StoreContext& context);

/// Writes the change to the workspace, or to a new one behind all others if that is null, and
/// saves. The answer is the workspace, in the store.
[[nodiscard]] Expected<TrovellWorkspace*, EditingError>
saveChange(WorkspaceChange change, TrovellWorkspace* workspaceOrNull, StoreContext& context);

/// Saves what was written, or rolls it back.
[[nodiscard]] Expected<void, StoreError> saveOrRollBack(StoreContext& context);

} // namespace trovell
