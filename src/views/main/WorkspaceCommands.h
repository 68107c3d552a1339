// SPDX-License-Identifier: MIT
//
// What the main window writes to the store. Every function saves; when that fails, everything is
// as it was and the answer is why, in the product's words. Main thread.
#pragma once

#include "support/Expected.h"
#include "support/Message.h"

#include <QList>
#include <QString>
#include <QUuid>

namespace trovell {

class StoreContext;
class TrovellWorkspace;

/// Adds a copy called "… Copy" behind all others, with copies of all items and placements and
/// without the shortcut, so that no two workspaces share a key. The answer is the copy.
[[nodiscard]] Expected<TrovellWorkspace*, Message>
duplicateWorkspace(StoreContext& context, const TrovellWorkspace& source);

/// Its items and placements go with it. The others keep their sort orders.
[[nodiscard]] Expected<void, Message> deleteWorkspace(StoreContext& context,
                                                      TrovellWorkspace& workspace);

/// Removes all placements and leaves the items.
[[nodiscard]] Expected<void, Message> clearSavedLayout(StoreContext& context,
                                                       TrovellWorkspace& workspace);

/// Gives it that name without the white space around it.
[[nodiscard]] Expected<void, Message>
renameWorkspace(StoreContext& context, TrovellWorkspace& workspace, const QString& name);

/// The workspace `dragged` goes immediately before `target`; all are renumbered from 0 and count
/// as updated, moved or not.
[[nodiscard]] Expected<void, Message> moveWorkspace(StoreContext& context, const QUuid& dragged,
                                                    const QUuid& target);

/// The workspace changes places with its neighbour `step` rows below, so that the last place can be
/// reached too. Nothing happens at the ends of the list.
[[nodiscard]] Expected<void, Message> moveWorkspaceBy(StoreContext& context, const QUuid& id,
                                                      int step);

} // namespace trovell
