// SPDX-License-Identifier: MIT
//
// Which windows count: the ordinary windows of an application are the ones that are captured, and
// only they are restored. Any thread.
#pragma once

#include "windows/WindowSystem.h"

namespace trovell {

/// The frame in accessibility coordinates, when both position and size are known.
[[nodiscard]] std::optional<QRectF> readWindowFrame(const WindowAttributes& window);

/// A standard window that is not minimised, is larger than 80 × 60 points and is no dialog or
/// floating panel.
[[nodiscard]] bool isOrdinaryWindow(const WindowAttributes& window);

} // namespace trovell
