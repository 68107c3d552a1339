// SPDX-License-Identifier: MIT
//
// What kind of window a window is. Pure, any thread.
#pragma once

#include "platform/x11/X11Atoms.h"
#include "windows/DesktopWindow.h"

#include <QList>

#include <optional>

namespace trovell {

/// From _NET_WM_WINDOW_TYPE, whose first known type counts; without one a transient window is a
/// dialog (EWMH section 5). None for desktops, panels, menus and tooltips: to the user they are no
/// windows.
[[nodiscard]] std::optional<WindowKind> windowKind(const QList<quint32>& types, bool isTransient,
                                                   const X11Atoms& atoms);

} // namespace trovell
