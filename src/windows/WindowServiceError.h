// SPDX-License-Identifier: MIT
//
// Why windows could not be captured or restored. Any thread.
#pragma once

#include <QString>

namespace trovell {

enum class WindowServiceError { accessibilityPermissionMissing, noWindows };

[[nodiscard]] QString description(WindowServiceError error);

} // namespace trovell
