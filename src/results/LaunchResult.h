// SPDX-License-Identifier: MIT
//
// One line of a launch report: what became of one launch item or one saved window. Any thread.
#pragma once

#include <QString>
#include <QUuid>

#include <optional>

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
    QString name;
    LaunchResultKind kind = LaunchResultKind::failed;
    /// An explanation for people; a localisation key where it is a fixed text.
    std::optional<QString> detail;

    bool operator==(const LaunchResult&) const = default;
};

/// A line with a new random id.
[[nodiscard]] LaunchResult makeLaunchResult(const QString& name, LaunchResultKind kind,
                                            const std::optional<QString>& detail = {});

} // namespace trovell
