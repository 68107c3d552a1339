// SPDX-License-Identifier: MIT
//
// Whether a window manager lives that lets windows be controlled, and what it can do. Remembers
// the window manager, so that asking again costs one round trip. One thread.
#pragma once

#include "platform/x11/X11Connection.h"
#include "windows/WindowSystem.h"

namespace trovell {

class X11Control {
public:
    /// Part of a batch.
    struct Request {
        xcb_window_t expected = 0;
        xcb_get_property_cookie_t check;
        xcb_get_property_cookie_t supported;
        xcb_get_property_cookie_t proof;
        xcb_get_selection_owner_cookie_t compositor;
        xcb_get_property_cookie_t desktopCount;
        xcb_get_property_cookie_t desktopNames;
        xcb_get_property_cookie_t currentDesktop;
    };
    struct Answer {
        WindowControl control = WindowControl::unsupported;
        DesktopAbilities abilities = {};
        /// Minimized windows carry _NET_WM_STATE_HIDDEN.
        bool tellsHidden = false;
        QStringList virtualDesktopNames = {};
        std::optional<int> currentVirtualDesktop = {};
    };

    /// Borrows the connection.
    explicit X11Control(const X11Connection& connection) : m_connection(connection) {}

    [[nodiscard]] Request request() const;
    /// After `finishBatch`.
    [[nodiscard]] Answer receive(const Request& request);

private:
    const X11Connection& m_connection;
    /// The window by which the window manager showed itself last time.
    xcb_window_t m_managerWindow = 0;
};

} // namespace trovell
