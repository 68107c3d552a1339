// SPDX-License-Identifier: MIT
//
// File paths as bytes: names on disk need not be UTF-8, so a detour through QString would lose
// files. Pure; any thread.
#pragma once

#include <QByteArray>
#include <QUrl>

#include <optional>

namespace trovell {

/// The absolute path of a file URL of this machine, without slashes at its end. None for every
/// other URL.
[[nodiscard]] std::optional<QByteArray> localPath(const QUrl& url);

/// The file URL of an absolute path.
[[nodiscard]] QUrl fileURL(const QByteArray& path);

/// The folder of an absolute path; that of "/" is "/".
[[nodiscard]] QByteArray parentPath(const QByteArray& path);

[[nodiscard]] QByteArray fileName(const QByteArray& path);

[[nodiscard]] QByteArray joinedPath(const QByteArray& folder, const QByteArray& name);

} // namespace trovell
