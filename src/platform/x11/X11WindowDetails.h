// SPDX-License-Identifier: MIT
//
// What a window of the session's own display says of itself, for window managers that tell little
// more than its number. Connects at the first question. One thread, which waits for the server.
#pragma once

#include "platform/desktop/UntoldFacts.h"
#include "platform/x11/X11Connection.h"

#include <optional>

namespace trovell {

class X11WindowDetails {
public:
    /// Its kind is none for panels, desktops and windows that are gone.
    [[nodiscard]] UntoldFacts factsOf(quint32 window);

private:
    std::optional<X11Connection> m_connection;
};

} // namespace trovell
