// SPDX-License-Identifier: MIT
//
// Which process a window of the session's own display belongs to, for window managers that tell
// only the window. Connects at the first question. One thread, which waits for the server.
#pragma once

#include "platform/x11/X11Connection.h"

#include <optional>

namespace trovell {

class X11WindowProcess {
public:
    /// As the server knows it, else as the window claims; 0 when neither tells.
    [[nodiscard]] qint32 processOf(quint32 window);

private:
    std::optional<X11Connection> m_connection;
};

} // namespace trovell
