// SPDX-License-Identifier: MIT
//
// Sets virtual desktops, frames and states of many windows in one pass and makes sure that they
// hold: sends, waits for events, reads back and corrects, as `FramePass` decides. Has a connection
// of its own, so that passes on several threads share nothing. One worker thread at a time.
#pragma once

#include "platform/desktop/FramePass.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11Fence.h"
#include "platform/x11/X11WindowGeometry.h"
#include "platform/x11/X11WindowStates.h"

#include <QHash>
#include <QList>

#include <vector>

namespace trovell {

class X11FrameSetter {
public:
    /// Connects, and takes the windows from earlier passes. Borrows `claims`. The frames are in
    /// whole root pixels.
    X11FrameSetter(const X11Server& server, const QList<FramePass::Request>& requests,
                   WindowClaims& claims);

    /// Returns once every window is in place or will not be: a window that does not react takes
    /// about a second, a window manager that does not almost two. The outcome of each request,
    /// in their order.
    [[nodiscard]] QList<FrameOutcome> run();

    /// Whether `guard` has anything to do after `run`.
    [[nodiscard]] bool hasWindowsToGuard() const { return m_pass.hasWindowsToGuard(); }

    /// Watches over windows that may lose their frames for one more second.
    void guard();

private:
    struct Window {
        xcb_window_t id = 0;
        /// The number of the virtual desktop that it is to be on.
        std::optional<quint32> desktop = {};
        /// As they were last read.
        DecoratedWindow geometry = {};
        SizeHints hints = {};
    };
    class ReadingRequest;

    void negotiate();
    void sendSteps();
    void send(const FramePass::Command& command);
    void readUnread();
    void waitForEvents(FramePass::Time until);
    bool takeEvents();
    void noteEvent(const xcb_generic_event_t& event);
    void noteChange(xcb_window_t window);

    X11Connection m_connection;
    X11Fence m_fence;
    X11DesktopFacts m_facts;
    FramePass m_pass;
    /// In the order of the requests.
    std::vector<Window> m_windows;
    QHash<xcb_window_t, std::size_t> m_positions;
};

} // namespace trovell
