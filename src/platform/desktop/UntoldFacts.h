// SPDX-License-Identifier: MIT
//
// What a window manager may leave out about an X11 window, to be asked of the server. A plain
// value, any thread.
#pragma once

#include "windows/DesktopWindow.h"

#include <functional>
#include <optional>

namespace trovell {

struct UntoldFacts {
    /// As the server knows it, else as the window claims; 0 when neither tells.
    qint32 processIdentifier = 0;
    std::optional<WindowKind> kind;
};

using X11WindowQuestion = std::function<UntoldFacts(quint32 window)>;

} // namespace trovell
