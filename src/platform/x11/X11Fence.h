// SPDX-License-Identifier: MIT
//
// Tells when the window manager has worked through everything that was sent to it so far, however
// busy it is. One thread.
#pragma once

#include "platform/x11/X11Connection.h"

namespace trovell {

/// Works by asking to move a window of its own that is never shown: such a request goes through
/// the window manager, which takes its work in order, and which must let it pass (ICCCM 4.1.4).
class X11Fence {
public:
    /// Borrows the connection.
    explicit X11Fence(const X11Connection& connection);

    /// Behind everything that was sent until now. Not flushed.
    void put();
    /// Whether a put fence has not been reached yet.
    [[nodiscard]] bool isPending() const { return m_reached != m_put; }
    /// True when the event says that a fence was reached. For all events of the connection.
    bool noteEvent(const xcb_generic_event_t& event);

private:
    const X11Connection& m_connection;
    xcb_window_t m_window;
    /// Positions of the window: each fence has its own.
    int m_put = 0;
    int m_reached = 0;
};

} // namespace trovell
