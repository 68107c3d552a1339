// SPDX-License-Identifier: MIT
//
// The outcome of one workspace start: its lines, their counts and a one-sentence summary.
// Any thread.
#pragma once

#include "results/LaunchResult.h"

#include <QList>

namespace trovell {

struct WorkspaceLaunchReport {
    /// Items first, in item order, then windows.
    QList<LaunchResult> results;

    bool operator==(const WorkspaceLaunchReport&) const = default;

    [[nodiscard]] qint64 attentionCount() const;
    [[nodiscard]] qint64 restoredWindowCount() const;
    /// Restored windows are counted here, too.
    [[nodiscard]] qint64 completedActionCount() const;
    /// `unresolvedCount` and `skippedCount` overlap on purpose: a report is all right when both
    /// are zero.
    [[nodiscard]] qint64 unresolvedCount() const;
    [[nodiscard]] qint64 skippedCount() const;
    [[nodiscard]] Message summary() const;
};

} // namespace trovell
