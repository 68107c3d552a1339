// SPDX-License-Identifier: MIT
//
// Reads the whole desktop of sway or i3 in one round trip. Any thread.
#pragma once

#include "platform/sway/SwayConnection.h"
#include "platform/sway/SwayTree.h"

#include <optional>

namespace trovell {

/// None when the server is gone or answers nonsense; the connection is closed then.
[[nodiscard]] std::optional<SwayTree> readSwayTree(SwayConnection& connection);

/// The text of the configuration; empty when it is not told.
[[nodiscard]] QString readSwayConfiguration(SwayConnection& connection);

} // namespace trovell
