// SPDX-License-Identifier: MIT
//
// Writes what was captured into the store. Main thread.
#pragma once

#include "support/Expected.h"
#include "views/capture/CaptureDraft.h"

#include <memory>
#include <vector>

namespace trovell {

class ResourceSystem;
class StoreContext;
class WorkspaceItem;

struct WorkspaceCaptureSaveError {
    enum class Kind { applicationUnavailable };

    Kind kind = Kind::applicationUnavailable;
    QString applicationName;

    bool operator==(const WorkspaceCaptureSaveError&) const = default;
};

[[nodiscard]] Message description(const WorkspaceCaptureSaveError& error);

/// Records that belong to no workspace yet.
using NewItems = std::vector<std::unique_ptr<WorkspaceItem>>;

/// A launch item for each included application that is marked for it, with sort orders from
/// `firstSortOrder` on. Fails for an application that can no longer be found.
[[nodiscard]] Expected<NewItems, WorkspaceCaptureSaveError>
makeLaunchItems(const QList<CapturedApplication>& applications, qint64 firstSortOrder,
                const ResourceSystem& resources);

/// Copies of the source's items, without the applications that were detected; after them the
/// launch items of the capture.
[[nodiscard]] Expected<NewItems, WorkspaceCaptureSaveError>
itemsForSaveAsNew(const TrovellWorkspace& source, const QList<CapturedApplication>& applications,
                  const ResourceSystem& resources);

/// Deletes the placements of detected applications and those that are not `kept`, and appends the
/// included windows of `applications`.
void replaceLayout(TrovellWorkspace& workspace, const QList<CapturedApplication>& applications,
                   const QSet<QUuid>& kept, StoreContext& context);

struct SavedCapture {
    /// In the store.
    TrovellWorkspace* workspace = nullptr;
    /// One line about it.
    Message notice;
};

/// Saves the draft as the purpose says. `workspace` is the one to update or to start from; null for
/// `create`, and where it was deleted meanwhile, which is a failure. After a failure the store is
/// as it was before, and the answer is why.
[[nodiscard]] Expected<SavedCapture, Message>
saveCapture(CapturePurpose purpose, const CaptureDraft& draft, TrovellWorkspace* workspace,
            StoreContext& context, const ResourceSystem& resources);

} // namespace trovell
