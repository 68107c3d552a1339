// SPDX-License-Identifier: MIT

#include "MoveWatcher.h"

#include <chrono>
#include <cstdlib>

#include <poll.h>

namespace trovell::bench {

MoveWatcher::MoveWatcher(const QByteArray& displayName, const QList<quint32>& windows)
    : m_connection(xcb_connect(displayName.constData(), nullptr))
{
    const uint32_t mask = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    for (const quint32 window : windows)
        xcb_change_window_attributes(m_connection, window, XCB_CW_EVENT_MASK, &mask);
    xcb_flush(m_connection);
}

MoveWatcher::~MoveWatcher()
{
    xcb_disconnect(m_connection);
}

double MoveWatcher::waitForRest()
{
    constexpr int quietMilliseconds = 250;
    const auto begin = std::chrono::steady_clock::now();
    // What waits in the socket came while nobody looked.
    takeEvents();
    auto last = begin;
    pollfd descriptor = {xcb_get_file_descriptor(m_connection), POLLIN, 0};
    while (poll(&descriptor, 1, quietMilliseconds) > 0 &&
           xcb_connection_has_error(m_connection) == 0) {
        if (takeEvents())
            last = std::chrono::steady_clock::now();
    }
    return std::chrono::duration<double>(last - begin).count();
}

bool MoveWatcher::takeEvents()
{
    bool hasTaken = false;
    while (xcb_generic_event_t* event = xcb_poll_for_event(m_connection)) {
        hasTaken = true;
        std::free(event);
    }
    return hasTaken;
}

} // namespace trovell::bench
