// SPDX-License-Identifier: MIT
//
// What makes a file or folder the same one under another path. Plain values; any thread.
#pragma once

#include <QByteArray>

#include <optional>

namespace trovell {

struct FileIdentity {
    enum class Kind : quint8 { file, folder };

    /// Names the file system only until the next boot.
    quint64 device = 0;
    quint64 inode = 0;
    /// In nanoseconds since 1970, told apart from other files that used the same inode number
    /// later; 0 when the file system does not keep it.
    quint64 birth = 0;
    /// For a symbolic link the kind of what it leads to; everything else is the link's own.
    Kind kind = Kind::file;

    bool operator==(const FileIdentity&) const = default;
};

/// None when there is no file or folder at `path`, which may hold any bytes and is relative to the
/// open folder `folder` (statx(2)); a link that leads nowhere counts as none.
[[nodiscard]] std::optional<FileIdentity> fileIdentity(const QByteArray& path);
[[nodiscard]] std::optional<FileIdentity> fileIdentity(int folder, const char* name);

} // namespace trovell
