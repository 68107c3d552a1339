// SPDX-License-Identifier: MIT
//
// What the editor holds until "Save", and how that is written. Main thread.
#pragma once

#include "editing/CaptureDraft.h"
#include "model/TrovellWorkspace.h"

#include <QPointer>

namespace trovell {

/// What a save does to the saved windows.
enum class LayoutChange { none, clearLayout, replaceLayout };

struct WorkspaceEdits {
    WorkspaceBasics basics = {};
    QList<EditableWorkspaceItem> items = {};
    /// The saved windows; their switches are edited.
    QList<EditablePlacement> placements = {};
    LayoutChange layoutChange = LayoutChange::none;
    /// Of the last capture, with the choice made among them.
    QList<CapturedApplication> capturedApplications = {};
    /// The saved windows that it did not see.
    QList<RetainedPlacementDraft> retainedPlacements = {};
};

/// The workspace that a save writes to.
struct EditedWorkspace {
    explicit EditedWorkspace(TrovellWorkspace* workspaceOrNull);

    /// Null for one that is yet to be made, and once an existing one was deleted elsewhere.
    QPointer<TrovellWorkspace> workspace;
    bool isNew;
    /// What the sheet starts with.
    WorkspaceEdits edits;
    /// Whether `edits` has all items of the workspace: false when they could not be read.
    bool isComplete = true;

    [[nodiscard]] bool isGone() const;
};

/// Writes everything to the workspace, or to a new one, and saves; the answer is the workspace.
/// Items are replaced by new records of the same ids, numbered from 0.
[[nodiscard]] Expected<TrovellWorkspace*, EditingError>
saveEdits(const EditedWorkspace& target, const WorkspaceEdits& edits, StoreContext& context);

} // namespace trovell
