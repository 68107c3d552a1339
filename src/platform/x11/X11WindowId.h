// SPDX-License-Identifier: MIT
//
// What the id of a window says about it besides its number: setting frames on other threads needs
// that without sharing state with the reading one, which found it out. Any thread.
#pragma once

#include "windows/DesktopWindow.h"

#include <chrono>
#include <optional>

namespace trovell {

struct X11WindowFacts {
    using Time = std::chrono::steady_clock::time_point;

    quint32 window = 0;
    /// Numbers of windows are used again, also by other programs; 0 when it is not known.
    qint32 processIdentifier = 0;
    /// Had a title in _NET_WM_NAME when it was first seen: the older WM_NAME need not be asked for.
    bool hasUnicodeTitle = false;
    /// None for a window that was there before anyone looked. Kept to a tenth of a second.
    std::optional<Time> firstSeen = {};
};

[[nodiscard]] WindowId makeWindowId(const X11WindowFacts& facts);

[[nodiscard]] quint32 windowOf(const WindowId& id);
[[nodiscard]] bool hasUnicodeTitle(const WindowId& id);

/// Programs put themselves where they were last within about this time after they opened a window.
inline constexpr std::chrono::seconds youth{2};

[[nodiscard]] bool isYoung(const WindowId& id, X11WindowFacts::Time now);

/// Whether that process was started less than `youth` ago; false when it is not known.
[[nodiscard]] bool isYoungProcess(qint32 processIdentifier);

} // namespace trovell
