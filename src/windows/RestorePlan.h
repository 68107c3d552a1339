// SPDX-License-Identifier: MIT
//
// What restoring an application's windows comes to: which window serves which placement, where it
// goes, and what to tell about it. Plain values and pure functions, any thread.
#pragma once

#include "results/LaunchResult.h"
#include "windows/StoredForms.h"
#include "windows/WindowPairing.h"
#include "windows/WindowPlacementSnapshot.h"
#include "windows/WindowSystem.h"

#include <QHash>
#include <QList>

#include <chrono>
#include <optional>

namespace trovell {

/// What became of each placement of one attempt: every id is a key of exactly one of the two.
struct WindowRestoreAttempt {
    QHash<QUuid, LaunchResult> completed;
    /// Worth another try, with the reason.
    QHash<QUuid, Message> retryableDetails;
    /// Beside some of those reasons.
    QHash<QUuid, Message> advice = {};
    /// How many windows the application has, put away or not, and how many the workspace saved.
    qsizetype windowCount = 0;
    qsizetype wantedWindowCount = 0;
    /// Its windows have been the same for so long that it has come up.
    bool isAtRest = false;
    /// It is to open those that it has too few of.
    bool opensMissingWindows = false;
};

/// A window that a placement is brought to, and how it stood before.
struct PlannedMove {
    WindowPlacementSnapshot placement;
    FrameRequest request;
    DesktopWindow before;
};

/// One application's part of a reading of the desktop: what became of placements already, and what
/// is to be moved.
struct WindowRestorePlan {
    WindowRestoreAttempt attempt;
    ApplicationWindows known;
    QList<PlannedMove> moves;
    std::optional<int> desktopInView;
};

/// Where a placement's window goes: desktop coordinates, wholly inside the visible frame of
/// the display that fits best, at least 240 × 160 where that display allows. None without a
/// display.
[[nodiscard]] std::optional<QRectF> restoreTarget(const WindowPlacementSnapshot& placement,
                                                  const StoredDisplays& displays);

/// The placements of one call, and what is known of their application.
struct RestoreGroup {
    QList<WindowPlacementSnapshot> placements;
    ApplicationWindows known;
};

/// The plans of all groups, in their order, out of one reading of the desktop.
[[nodiscard]] QList<WindowRestorePlan> makePlans(const QList<RestoreGroup>& groups,
                                                 const DesktopSnapshot& desktop,
                                                 std::chrono::steady_clock::time_point now);

/// The plan's attempt with what became of its moves; one outcome for each, in their order.
[[nodiscard]] WindowRestoreAttempt completedAttempt(const WindowRestorePlan& plan,
                                                    const QList<FrameOutcome>& outcomes);

/// The line of a window that was to be moved.
[[nodiscard]] LaunchResult movedResult(const WindowPlacementSnapshot& placement,
                                       FrameOutcome outcome);

} // namespace trovell
