// SPDX-License-Identifier: MIT
//
// Which live window serves which saved one, over the whole of a launch: what was paired stays
// paired, and what the rules of WindowMatching leave over is decided once an application has come
// to rest. Pure, any thread.
#pragma once

#include "windows/DesktopWindow.h"

#include <QHash>
#include <QList>
#include <QSet>
#include <QString>
#include <QUuid>

#include <chrono>
#include <optional>

namespace trovell {

struct WindowPlacementSnapshot;

/// What a launch remembers of one application's windows. Copied to workers and back.
struct ApplicationWindows {
    /// By placement. These windows are taken for the rest of the launch.
    QHash<QUuid, WindowId> paired;
    /// Those that stood before the launch.
    QSet<WindowId> earlier;
    /// As last seen, and since when they have looked like that.
    QList<std::pair<WindowId, QString>> seen;
    std::chrono::steady_clock::time_point seenSince;
};

/// Adds to `known.paired` what can be decided now about the placements, which all belong to the
/// application with these windows. A likeness by words alone, and windows that nothing tells apart,
/// wait until the windows have been the same for a second; windows that stood before the launch
/// are never taken for what they are not.
void pairWindows(const QList<WindowPlacementSnapshot>& placements,
                 const QList<DesktopWindow>& windows, std::chrono::steady_clock::time_point now,
                 ApplicationWindows& known);

} // namespace trovell
