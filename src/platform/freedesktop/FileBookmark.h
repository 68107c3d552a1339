// SPDX-License-Identifier: MIT
//
// A reference to a file or folder that survives renaming, moving and replacing it, without any
// service in the background. Reads the disk and blocks meanwhile; any thread.
#pragma once

#include "launch/ResourceSystem.h"
#include "platform/freedesktop/FileSearch.h"

#include <QByteArray>
#include <QUrl>

#include <optional>

namespace trovell {

/// None when `url` names no existing file or folder of this machine.
[[nodiscard]] std::optional<QByteArray> createFileBookmark(const QUrl& url);

/// A search in the present user's home folder.
[[nodiscard]] FileSearchScope standardSearchScope();

/// The path wins over the file: whatever file (or folder, if it was one) is at the path now is the
/// answer, stale unless it is the very same. Only when there is none the old one is searched, and
/// is stale where it is found. None when it is gone or the bytes are no bookmark.
[[nodiscard]] std::optional<ResolvedBookmark> resolveFileBookmark(const QByteArray& bookmark,
                                                                  const FileSearchScope& scope);

} // namespace trovell
