// SPDX-License-Identifier: MIT
//
// The commands on whole workspaces. Every function saves; when that fails, everything is as it was.
// Main thread.
#pragma once

#include "model/StoreError.h"
#include "support/Expected.h"

#include <QUuid>

namespace trovell {

class StoreContext;
class TrovellWorkspace;

/// Adds the first one, empty. The answer is the workspace.
[[nodiscard]] Expected<TrovellWorkspace*, StoreError> createWorkspace(StoreContext& context,
                                                                      const QString& name);

/// Adds a copy called "… Copy" behind all others, with copies of all items and placements and
/// without the shortcut, so that no two workspaces share a key. The answer is the copy.
[[nodiscard]] Expected<TrovellWorkspace*, StoreError>
duplicateWorkspace(StoreContext& context, const TrovellWorkspace& source);

/// Its items and placements go with it. The others keep their sort orders.
[[nodiscard]] Expected<void, StoreError> deleteWorkspace(StoreContext& context,
                                                         TrovellWorkspace& workspace);

/// Removes all placements and leaves the items.
[[nodiscard]] Expected<void, StoreError> clearSavedLayout(StoreContext& context,
                                                          TrovellWorkspace& workspace);

/// Gives it that name without the white space around it.
[[nodiscard]] Expected<void, StoreError>
renameWorkspace(StoreContext& context, TrovellWorkspace& workspace, const QString& name);

/// The workspace `dragged` goes immediately before `target`; all are renumbered from 0 and count
/// as updated, moved or not.
[[nodiscard]] Expected<void, StoreError> moveWorkspace(StoreContext& context, const QUuid& dragged,
                                                       const QUuid& target);

/// The workspace changes places with its neighbour `step` rows below, so that the last place can be
/// reached too. Nothing happens at the ends of the list.
[[nodiscard]] Expected<void, StoreError> moveWorkspaceBy(StoreContext& context, const QUuid& id,
                                                         int step);

} // namespace trovell
