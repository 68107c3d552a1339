// SPDX-License-Identifier: MIT
//
// Which windows count: the ordinary windows of an application are the ones that are captured, and
// only they are restored. Any thread.
#pragma once

#include "windows/DesktopWindow.h"

namespace trovell {

/// A standard window whose frame is known, that is not minimised and larger than 80 × 60 points.
[[nodiscard]] bool isOrdinaryWindow(const DesktopWindow& window);

} // namespace trovell
