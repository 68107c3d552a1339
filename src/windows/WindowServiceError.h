// SPDX-License-Identifier: MIT
//
// Why windows could not be captured or restored. Any thread.
#pragma once

#include "support/Message.h"

namespace trovell {

enum class WindowServiceError { accessibilityPermissionMissing, noWindows };

[[nodiscard]] Message description(WindowServiceError error);

} // namespace trovell
