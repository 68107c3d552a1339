// SPDX-License-Identifier: MIT
//
// One pass over windows under sway or i3: sends everything at once, reads back, and sends once more
// what did not come out as asked. A thread of its own, which waits.
#pragma once

#include "platform/sway/SwayConnection.h"
#include "platform/sway/SwayTiling.h"
#include "windows/WindowSystem.h"

namespace trovell {

/// The outcome of each request, in their order.
[[nodiscard]] QList<FrameOutcome> setSwayFrames(const QList<FrameRequest>& requests,
                                                SwayConnection& connection, SwayTiling& tiling);

} // namespace trovell
