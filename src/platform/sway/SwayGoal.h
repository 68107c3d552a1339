// SPDX-License-Identifier: MIT
//
// What one window is to become under sway or i3, and whether it has. A window that is tiled stays
// tiled, unless it was saved floating. Pure, any thread.
#pragma once

#include "platform/sway/SwayTree.h"
#include "windows/WindowSystem.h"

namespace trovell {

/// In which states windows can be put.
inline constexpr WindowStates swayStates =
    WindowStates(WindowState::minimized) | WindowState::fullScreen | WindowState::tiled;

struct SwayGoal {
    WindowId window;
    /// Whole pixels.
    QRectF frame;
    /// All that it is to have.
    WindowStates states;
    /// On which output, and on which workspace; empty where it may stay.
    QString output;
    QString workspace;
    bool isSticky = false;
    /// The workspace that it was to have lies on another output, which its frame overrules.
    bool hasLostWorkspace = false;
};

/// `desktopNames`: those that the request's virtual desktop counts.
[[nodiscard]] SwayGoal swayGoal(const FrameRequest& request, const SwayWindow& window,
                                const SwayTree& tree, const QStringList& desktopNames);

/// A workspace lies on one output as a whole: it goes where the first of its windows is to be, if
/// only windows of these goals are on it and agree. Others go to the output of their frames alone.
[[nodiscard]] QList<SwayGoal> withWorkspacesShared(QList<SwayGoal> goals, const SwayTree& tree);

/// Whether it has its states, its place and, where it has one of its own, its frame.
[[nodiscard]] bool isReached(const SwayGoal& goal, const SwayWindow& window, const SwayTree& tree);

/// The outcome for a window that has come to rest; null when it is gone.
[[nodiscard]] FrameOutcome outcomeOf(const SwayGoal& goal, const SwayWindow* window,
                                     const SwayTree& tree);

} // namespace trovell
