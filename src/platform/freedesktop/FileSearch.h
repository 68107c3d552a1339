// SPDX-License-Identifier: MIT
//
// Looks for a file or folder that is no longer where it was, by its identity, in the places where
// people move things. Blocks while it reads folders; any thread.
#pragma once

#include "platform/freedesktop/FileIdentity.h"

#include <QByteArray>

#include <chrono>
#include <optional>

namespace trovell {

/// How far a search goes.
struct FileSearchScope {
    /// The user's home folder; empty for none.
    QByteArray home;
    std::chrono::milliseconds time{300};
    /// How many levels below the home folder are read.
    int homeDepth = 6;
    /// No more entries than that are read of one folder, except of the one where the file was.
    int entriesPerFolder = 20'000;
};

/// The present path of what was at the absolute path `lostPath`, or none when it is gone or too far
/// away. Reads, nearest first, the folder where it was, the folders inside, then each folder above
/// with as many levels below as were lost and one more (a renamed folder takes everything along),
/// at last the home folder. Stays on one file system, follows no links and does not descend into
/// hidden folders, among them the trash.
[[nodiscard]] std::optional<QByteArray> findMovedFile(const QByteArray& lostPath,
                                                      const FileIdentity& identity,
                                                      const FileSearchScope& scope);

} // namespace trovell
