// SPDX-License-Identifier: MIT
//
// Sets the frames of many windows in one pass and makes sure that they hold: sends, waits for
// events, reads back and corrects. Has a connection of its own, so that passes on several threads
// share nothing. One worker thread at a time.
#pragma once

#include "platform/x11/FrameNegotiation.h"
#include "platform/x11/WindowClaims.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11Fence.h"

#include <QHash>
#include <QList>

#include <optional>
#include <vector>

namespace trovell {

class X11FrameSetter {
public:
    struct Request {
        xcb_window_t window = 0;
        /// The visible frame, in root pixels.
        PixelRectangle frame;
        /// Its program may move it once more all by itself.
        bool isYoung = false;
    };

    /// Connects, and takes the windows from earlier passes. Borrows `claims`.
    X11FrameSetter(const X11Server& server, const QList<Request>& requests, WindowClaims& claims);

    /// Returns once every window is in place or will not be: a window that does not react takes
    /// about a second, a window manager that does not almost two. Says for each request,
    /// in their order, whether its window took the frame.
    [[nodiscard]] QList<bool> run();

    /// Whether `guard` has anything to do after `run`.
    [[nodiscard]] bool hasWindowsToGuard() const;

    /// For one more second, puts windows back that their programs move away: young ones, and those
    /// that left a maximized or full-screen state. Every window at most a few times, and none that
    /// was placed again by another pass.
    void guard();

private:
    using Time = FrameNegotiation::Time;

    struct Window {
        Request request;
        FrameNegotiation negotiation;
        /// The frame that it took. From then on the negotiation is about keeping that.
        std::optional<PixelRectangle> settledFrame;
        /// Took its frame, and may lose it again: see `guard`.
        bool isWatched = false;
        int corrections = 0;
    };

    void negotiate(Time end);
    void sendSteps();
    void noteSettled(Window& window) const;
    /// Whether a settled window is still this pass's and has not been corrected too often.
    bool mayCorrect(Window& window) const;
    void send(const Window& window, FrameNegotiation::Step step);
    void takeOffStates(const Window& window);
    void readUnread();
    void waitForEvents(Time until);
    bool takeEvents();
    void noteEvent(const xcb_generic_event_t& event);
    void noteChange(xcb_window_t window);
    [[nodiscard]] bool isTimeToRead(Time now) const;
    [[nodiscard]] Time nextWakeUp(Time deadline) const;
    /// When the window manager last got on with the work.
    [[nodiscard]] Time progress(Time now) const;
    [[nodiscard]] bool isOver() const;

    X11Connection m_connection;
    X11Fence m_fence;
    WindowClaims& m_claims;
    WindowClaims::Claim m_claim;
    std::vector<Window> m_windows;
    QHash<xcb_window_t, std::size_t> m_positions;
    /// When the window manager reached a fence, or a window answered for the first time since
    /// something was sent to it.
    Time m_lastProgress;
    /// When anything happened to a window that is not in place yet, or a fence was reached.
    Time m_lastEvent;
    std::optional<Time> m_unreadSince;
    bool m_isGuarding = false;
};

} // namespace trovell
