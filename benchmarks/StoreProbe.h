// SPDX-License-Identifier: MIT
//
// Opens a store in a process of its own and tells what that cost: time, memory and bytes read.
// A process that has opened one before would no longer show it.
#pragma once

#include <QString>

#include <optional>

namespace trovell::bench {

struct StoreCost {
    double seconds = 0;
    /// Growth of the process's proportional share of memory since before the store was opened.
    double megabytes = 0;
    /// What the process asked the file system for.
    double megabytesRead = 0;
};

struct StoreProbe {
    /// Opened, and names and counts of all workspaces listed.
    StoreCost listing;
    /// The listing's own part of it.
    double secondsToList = 0;
    /// All of it, items and placements of all workspaces included.
    StoreCost everything;
    /// From a workspace's selection to its items and placements being there.
    double secondsToSelectOne = 0;
};

/// Runs the probe as a child process. With `isCold`, the store's file is not in the system's
/// cache. None when it did not run.
[[nodiscard]] std::optional<StoreProbe> probeStore(const QString& folder, bool isCold = false);

/// The child's part: prints what it found. Returns the exit code.
[[nodiscard]] int runStoreProbe(const QString& folder);

} // namespace trovell::bench
