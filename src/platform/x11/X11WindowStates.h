// SPDX-License-Identifier: MIT
//
// The states and virtual desktops of windows in the words of X11 (EWMH sections 3 and 5). Any
// thread.
#pragma once

#include "platform/x11/X11Connection.h"
#include "windows/WindowSystem.h"

namespace trovell {

/// What a pass has to know of the window manager.
struct X11DesktopFacts {
    /// What can be set of a window.
    WindowStates states;
    quint32 virtualDesktopCount = 0;
};

/// Out of a list of state atoms, such as _NET_WM_STATE or _NET_SUPPORTED.
[[nodiscard]] WindowStates statesOf(const QList<quint32>& atomList, const X11Atoms& atoms);

/// As _NET_WM_DESKTOP has it.
[[nodiscard]] quint32 desktopNumber(const DesktopPlace& place);

/// Waits for the server once.
[[nodiscard]] X11DesktopFacts readDesktopFacts(const X11Connection& connection);

// These ask the window manager. Not flushed.

void sendStates(const X11Connection& connection, xcb_window_t window, WindowStates from,
                WindowStates to);
void sendDesktop(const X11Connection& connection, xcb_window_t window, quint32 desktop);

/// Asks for so many virtual desktops and waits for them, a second at most.
void makeDesktops(const X11Connection& connection, quint32 count);

} // namespace trovell
