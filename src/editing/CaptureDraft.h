// SPDX-License-Identifier: MIT
//
// What the capture sheet holds until it is saved, and how that is written. Main thread.
#pragma once

#include "editing/CapturedChoice.h"
#include "editing/WorkspaceChange.h"

namespace trovell {

class ResourceSystem;

enum class CapturePurpose {
    create,    ///< a new workspace from scratch
    update,    ///< the window layout of a workspace is replaced
    saveAsNew, ///< a new workspace that starts from another one
};

/// A saved window that the capture did not see.
struct RetainedPlacementDraft {
    QUuid placementID = {};
    QString bundleIdentifier = {};
    QString applicationName = {};
    std::optional<QString> windowTitle = {};
    bool isKept = true;

    bool operator==(const RetainedPlacementDraft&) const = default;
};

struct CaptureDraft {
    WorkspaceBasics basics = {};
    QList<CapturedApplication> applications = {};
    QList<RetainedPlacementDraft> retainedPlacements = {};
};

// In all of these, `workspace` is the one to update or to start from: null for `create`, and where
// it was deleted meanwhile.

/// What the sheet starts with.
[[nodiscard]] CaptureDraft makeCaptureDraft(CapturePurpose purpose,
                                            const TrovellWorkspace* workspace);

/// The applications a capture is limited to: those that an updated workspace starts.
[[nodiscard]] std::optional<QSet<QString>> captureFilter(CapturePurpose purpose,
                                                         const TrovellWorkspace* workspace);

/// The saved windows that are not among those of `applications`, in the order in which they were
/// appended. Fails when they cannot be read: a save with a list that lacks some would delete them.
[[nodiscard]] Expected<QList<RetainedPlacementDraft>, EditingError>
buildRetainedPlacements(CapturePurpose purpose, const TrovellWorkspace* workspace,
                        const QList<CapturedApplication>& applications);

[[nodiscard]] QSet<QUuid> keptPlacementIDs(const QList<RetainedPlacementDraft>& placements);

[[nodiscard]] bool isSaveDisabled(CapturePurpose purpose, const CaptureDraft& draft);

/// Saves the draft as the purpose says; the answer is the workspace, in the store. A variant gets
/// copies of its source's items, those of detected applications made anew from the capture.
[[nodiscard]] Expected<TrovellWorkspace*, EditingError>
saveCapture(CapturePurpose purpose, const CaptureDraft& draft, TrovellWorkspace* workspace,
            StoreContext& context, const ResourceSystem& resources);

} // namespace trovell
