// SPDX-License-Identifier: MIT
//
// How launch items look in lists. Main thread unless said otherwise.
#pragma once

#include "model/WorkspaceItemType.h"
#include "views/words/Localization.h"

#include <QString>

#include <functional>

class QObject;

namespace trovell {

/// The symbol that stands for a kind of item.
[[nodiscard]] QString symbolOf(WorkspaceItemType type);

/// "Application", "Folder", "File" or "Web Link" in the user's language.
[[nodiscard]] QString typeLabel(WorkspaceItemType type, const Localization& words);

/// Whether the address names no file, or one that does not exist. Bookmarks are not followed. Asks
/// the file system, which may take its time: for workers.
[[nodiscard]] bool isResourceMissing(const QString& urlString);

/// Asks the above on a worker and calls `answer` on the main thread, later and only while
/// `receiver` lives.
void checkResourceMissing(const QString& urlString, QObject* receiver,
                          std::function<void(bool isMissing)> answer);

} // namespace trovell
