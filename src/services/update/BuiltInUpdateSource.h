// SPDX-License-Identifier: MIT
//
// Where this build gets its updates from, as chosen with the CMake variables TROVELL_FEED_URL and
// TROVELL_UPDATE_PUBLIC_KEY. Any thread.
#pragma once

#include <QString>
#include <QUrl>

#include <optional>

namespace trovell {

/// None when the build names no feed, as by default.
[[nodiscard]] std::optional<QUrl> builtInFeedAddress();
/// None when the build names no key, as by default.
[[nodiscard]] std::optional<QString> builtInPublicKey();

} // namespace trovell
