// SPDX-License-Identifier: MIT

#include "platform/desktop/SessionFacts.h"

namespace trovell {

SessionFacts sessionFacts()
{
    return {.type = qEnvironmentVariable("XDG_SESSION_TYPE"),
            .waylandDisplay = qEnvironmentVariable("WAYLAND_DISPLAY"),
            .x11Display = qEnvironmentVariable("DISPLAY")};
}

} // namespace trovell
