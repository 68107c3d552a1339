// SPDX-License-Identifier: MIT
//
// Reads windows in batches: however many there are, the server is waited for once. Any thread.
#pragma once

#include "platform/x11/X11Connection.h"
#include "platform/x11/X11WindowGeometry.h"
#include "windows/DesktopWindow.h"

#include <QList>

#include <optional>

namespace trovell {

/// Where one window is and how it is decorated; part of a batch. The extents change with the
/// window manager and with the window's state, so they are never remembered.
class X11FrameRequest {
public:
    X11FrameRequest(const X11Connection& connection, xcb_window_t window);
    /// After `finishBatch`. None when the window is gone.
    [[nodiscard]] std::optional<DecoratedWindow> receive(const X11Connection& connection) const;

private:
    xcb_get_geometry_cookie_t m_geometry;
    xcb_translate_coordinates_cookie_t m_position;
    xcb_get_property_cookie_t m_decorations;
    xcb_get_property_cookie_t m_shadow;
};

/// Fills in everything about the windows, of which ids and kinds are known. Windows that are gone
/// are left out. Without `tellsHidden` the window manager does not announce which windows are
/// minimized by their _NET_WM_STATE.
void readWindows(const X11Connection& connection, bool tellsHidden,
                 QList<RunningApplication>& applications);

} // namespace trovell
