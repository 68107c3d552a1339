// SPDX-License-Identifier: MIT

#include "platform/x11/X11Fence.h"

namespace trovell {

X11Fence::X11Fence(const X11Connection& connection)
    : m_connection(connection), m_window(xcb_generate_id(connection.get()))
{
    const quint32 mask = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_create_window(m_connection.get(), XCB_COPY_FROM_PARENT, m_window, m_connection.root(), 0, 0,
                      1, 1, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_EVENT_MASK, &mask);
}

void X11Fence::put()
{
    constexpr int positions = 1000;
    m_put = (m_put + 1) % positions;
    const auto x = static_cast<quint32>(m_put);
    xcb_configure_window(m_connection.get(), m_window, XCB_CONFIG_WINDOW_X, &x);
}

bool X11Fence::noteEvent(const xcb_generic_event_t& event)
{
    if (event.response_type != XCB_CONFIGURE_NOTIFY)
        return false;
    const auto& change = reinterpret_cast<const xcb_configure_notify_event_t&>(event);
    if (change.window != m_window)
        return false;
    m_reached = change.x;
    return true;
}

} // namespace trovell
