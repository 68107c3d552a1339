// The age of a window, carried in the upper half of its handle: restoring on worker threads needs
// to know which windows are new without sharing state with the main thread. Any thread.
#pragma once

#include "windows/WindowSystem.h"

#include <chrono>

namespace trovell {

/// Programs put themselves where they were last within about this time after they opened a window.
inline constexpr std::chrono::seconds youth{2};

/// A handle of a window that was there before anyone looked.
[[nodiscard]] WindowHandle handleOfOldWindow(quint32 window);
/// A handle of a window that appeared at about `firstSeen`.
[[nodiscard]] WindowHandle handleOfNewWindow(quint32 window,
                                             std::chrono::steady_clock::time_point firstSeen);

[[nodiscard]] quint32 windowOfHandle(WindowHandle handle);
[[nodiscard]] bool isYoung(WindowHandle handle, std::chrono::steady_clock::time_point now);

/// Whether that process was started less than `youth` ago; false when it is not known.
[[nodiscard]] bool isYoungProcess(qint32 processIdentifier);

} // namespace trovell
