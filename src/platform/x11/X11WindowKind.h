// SPDX-License-Identifier: MIT
//
// What kind of window a window is, in the words of the window system's roles. Pure, any thread.
#pragma once

#include "platform/x11/X11Atoms.h"

#include <QList>
#include <QString>

#include <optional>

namespace trovell {

enum class WindowKind : quint8 { standard, dialog, floating, system };

/// The "AXRole" of all of them.
[[nodiscard]] QString roleOfWindows();
/// The "AXSubrole".
[[nodiscard]] QString subroleOf(WindowKind kind);

/// From _NET_WM_WINDOW_TYPE, whose first known type counts; without one a transient window is a
/// dialog (EWMH section 5). None for desktops, panels, menus and tooltips: to the user they are no
/// windows.
[[nodiscard]] std::optional<WindowKind> windowKind(const QList<quint32>& types, bool isTransient,
                                                   const X11Atoms& atoms);

/// Whether a window of that kind shows that the user works with its application.
[[nodiscard]] bool isOrdinaryKind(std::optional<WindowKind> kind);

} // namespace trovell
