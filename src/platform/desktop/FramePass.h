// SPDX-License-Identifier: MIT
//
// Brings many windows to their frames in one pass and keeps them there for a while: says what to
// send, what to read and how long to wait. Decides only, like `FrameNegotiation`, which it holds
// one of for each window; an adapter sends, reads and waits. Given times, one thread at a time.
#pragma once

#include "platform/desktop/FrameNegotiation.h"
#include "platform/desktop/WindowClaims.h"
#include "windows/WindowSystem.h"

#include <QList>

#include <optional>
#include <vector>

namespace trovell {

class FramePass {
public:
    using Time = FrameNegotiation::Time;
    using Step = FrameNegotiation::Step;

    struct Request {
        WindowId window;
        FrameGoal goal;
        std::optional<DesktopPlace> virtualDesktop = {};
        /// Its program may move it once more all by itself.
        bool isYoung = false;
    };

    struct Command {
        /// The window's place among the requests, as everywhere here.
        std::size_t position = 0;
        Step step = Step::wait;
        /// What it has, and what it is to have after `setStates`.
        WindowStates states = {};
        WindowStates statesToSet = {};
    };

    /// Takes the windows from earlier passes. Borrows `claims`.
    FramePass(const QList<Request>& requests, WindowClaims& claims, Time now);
    ~FramePass();
    FramePass(const FramePass&) = delete;
    FramePass& operator=(const FramePass&) = delete;

    /// The frame that the window is asked to take now.
    [[nodiscard]] const QRectF& target(std::size_t position) const;

    /// What has to be read now. All of it is read at once.
    [[nodiscard]] std::vector<std::size_t> unread() const;
    void read(std::size_t position, const std::optional<FrameReading>& reading, Time now);

    /// The window changed somehow.
    void noteChange(std::size_t position, Time now);
    /// The window manager got on with its work.
    void noteProgress(Time now) { m_lastProgress = m_lastEvent = now; }

    // As long as the window manager is known to be busy, silence is no answer.

    /// What to send now.
    [[nodiscard]] std::vector<Command> nextSteps(Time now, bool isBusy);
    /// When to come back if nothing happens until then.
    [[nodiscard]] Time nextWakeUp(Time now, bool isBusy) const;
    /// Changes come in bursts, which are read together.
    [[nodiscard]] bool isTimeToRead(Time now) const;
    /// Every window is in place or will not be, or time is up.
    [[nodiscard]] bool isOver(Time now) const;

    /// Ends it: the outcome of each request, in their order.
    [[nodiscard]] QList<FrameOutcome> finish();

    /// Whether windows may still lose their frames: young ones, and those that were put into other
    /// states.
    [[nodiscard]] bool hasWindowsToGuard() const;
    /// After `finish`, and for one second: windows that their programs move away go back, each a
    /// few times at most, and none that was placed again by another pass.
    void beginGuard(Time now);

private:
    struct Window {
        Request request;
        FrameNegotiation negotiation;
        /// The frame that it took. From then on the negotiation is about keeping that.
        std::optional<QRectF> settledFrame = {};
        /// Took its frame, and may lose it again.
        bool isWatched = false;
        int corrections = 0;
    };

    [[nodiscard]] static FrameOutcome finish(Window& window);
    static void noteSettled(Window& window);
    /// Whether a settled window is still this pass's and has not been corrected too often.
    [[nodiscard]] bool mayCorrect(Window& window) const;
    /// When the window manager last got on with the work.
    [[nodiscard]] Time progress(Time now, bool isBusy) const
    {
        return isBusy ? now : m_lastProgress;
    }
    [[nodiscard]] Time deadline() const;

    WindowClaims& m_claims;
    WindowClaims::Claim m_claim;
    std::vector<Window> m_windows;
    Time m_end;
    /// When the window manager was last known to work, or a window answered for the first time
    /// since something was sent to it.
    Time m_lastProgress;
    /// When anything happened to a window that is not in place yet, or the manager worked.
    Time m_lastEvent;
    std::optional<Time> m_unreadSince;
    bool m_isGuarding = false;
};

} // namespace trovell
