// SPDX-License-Identifier: MIT
//
// What a handle says about its window besides its number. Reading and restoring on worker threads
// need that without sharing state with the main thread, which found it out. Any thread.
#pragma once

#include "platform/x11/X11WindowKind.h"
#include "windows/WindowSystem.h"

#include <chrono>
#include <optional>

namespace trovell {

struct X11WindowHandle {
    using Time = std::chrono::steady_clock::time_point;

    quint32 window = 0;
    /// A window keeps the kind with which it appeared.
    WindowKind kind = WindowKind::standard;
    /// Had a title in _NET_WM_NAME when it was first seen: the older WM_NAME need not be asked for.
    bool hasUnicodeTitle = false;
    /// None for a window that was there before anyone looked. Kept to a tenth of a second.
    std::optional<Time> firstSeen = {};
};

[[nodiscard]] WindowHandle packedHandle(const X11WindowHandle& handle);

[[nodiscard]] quint32 windowOfHandle(WindowHandle handle);
[[nodiscard]] WindowKind kindOfHandle(WindowHandle handle);
[[nodiscard]] bool hasUnicodeTitle(WindowHandle handle);

/// Programs put themselves where they were last within about this time after they opened a window.
inline constexpr std::chrono::seconds youth{2};

[[nodiscard]] bool isYoung(WindowHandle handle, X11WindowHandle::Time now);

/// Whether that process was started less than `youth` ago; false when it is not known.
[[nodiscard]] bool isYoungProcess(qint32 processIdentifier);

} // namespace trovell
