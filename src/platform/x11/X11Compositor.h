// SPDX-License-Identifier: MIT

#pragma once

namespace trovell {

/// Whether a compositing manager runs on the display of this session (EWMH: it owns the selection
/// _NET_WM_CM_Sn), so that windows can be translucent. Any thread; a connection of its own.
[[nodiscard]] bool hasX11Compositor();

} // namespace trovell
