// SPDX-License-Identifier: MIT
//
// One line of a launch report: what became of one launch item or one saved window. Any thread.
#pragma once

#include "support/Message.h"

#include <QString>
#include <QUuid>

namespace trovell {

enum class LaunchResultKind {
    launched,
    alreadyRunning,
    opened,
    restored,
    skippedMissingResource,
    skippedNoPermission,
    windowNotFound, ///< Kept for completeness; nothing produces it.
    timedOut,
    failed,
};

/// The kind as text, equal to the enumerator's name.
[[nodiscard]] QString rawValue(LaunchResultKind kind);

struct LaunchResult {
    /// Identifies this line, not the item or window that it is about.
    QUuid id;
    /// Of the item, application or window, verbatim; a key where the line is about all windows.
    Message name;
    LaunchResultKind kind = LaunchResultKind::failed;
    /// An explanation for people, or none.
    Message detail;
    /// Beside it: what is the case, and what they can do; or none.
    Message advice = {};

    bool operator==(const LaunchResult&) const = default;
};

/// A line with a new random id.
[[nodiscard]] LaunchResult makeLaunchResult(const Message& name, LaunchResultKind kind,
                                            const Message& detail = {}, const Message& advice = {});

} // namespace trovell
