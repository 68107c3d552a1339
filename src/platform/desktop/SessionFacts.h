// SPDX-License-Identifier: MIT
//
// What a session says about itself, by which a back end is chosen. Plain values, any thread.
#pragma once

#include <QString>

namespace trovell {

/// Each is empty where the session does not say.
struct SessionFacts {
    /// "x11", "wayland", "tty", …
    QString type;
    QString waylandDisplay;
    QString x11Display;

    /// X11 programs may run there too, but none of them sees the other windows.
    [[nodiscard]] bool isWayland() const
    {
        return type == QLatin1StringView("wayland") || !waylandDisplay.isEmpty();
    }
};

/// Those of the session that this process was started in.
[[nodiscard]] SessionFacts sessionFacts();

} // namespace trovell
