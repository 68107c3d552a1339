// SPDX-License-Identifier: MIT
//
// Brings one window to its virtual desktop, frame and states, as a dialogue with a window manager
// that answers late, rounds, or drops requests. Decides only: someone else sends what it asks for
// and tells it what came back. Values and given times, any thread.
#pragma once

#include "windows/DesktopWindow.h"

#include <QRectF>

#include <chrono>
#include <optional>

namespace trovell {

/// Those in which a window has no frame of its own.
inline constexpr WindowStates fillingStates = WindowStates(WindowState::maximizedHorizontally) |
                                              WindowState::maximizedVertically |
                                              WindowState::fullScreen;

/// What a window is to become.
struct FrameGoal {
    /// For a window that is to fill a display: the frame that it falls back to.
    QRectF frame;
    /// All that it is to have; none leaves them alone, except that those that fill a display come
    /// off a window that does not have its frame.
    std::optional<WindowStates> states = {};
};

/// What was read of a window at one moment.
struct FrameReading {
    /// What the user sees of the window.
    QRectF frame;
    /// What becomes of the frame that it is asked to take, by the window's own rules for its size.
    QRectF allowedFrame;
    /// Among those that can be set.
    WindowStates states = {};
    /// Someone holds it with the mouse.
    bool isHeld = false;
    /// It lies on the virtual desktop that it is to be on.
    bool isOnDesktop = true;
};

class FrameNegotiation {
public:
    using Time = std::chrono::steady_clock::time_point;

    enum class Step {
        wait,
        setDesktop,
        /// Give it `statesToSet`.
        setStates,
        move,
        /// Move one pixel aside and then into place: some window managers drop a request that
        /// equals the rectangle they remember.
        moveAround,
    };

    /// `stoodAt`: where the window is known to have been.
    explicit FrameNegotiation(const FrameGoal& goal, const std::optional<QRectF>& stoodAt = {})
        : m_goal(goal), m_stoodAt(stoodAt)
    {
    }

    /// The window looks like this now; none means that it is gone.
    void read(const std::optional<FrameReading>& reading, Time now);
    /// The window changed somehow and has to be read again.
    void changed(Time now);

    /// What to send now. `lastProgress` is when the window manager last got on with its work: as
    /// long as it is busy, silence is no answer.
    [[nodiscard]] Step nextStep(Time now, Time lastProgress);
    /// When `nextStep` has to be asked again if nothing happens until then.
    [[nodiscard]] Time nextStepAt(Time lastProgress) const;
    /// Ends the dialogue with what was reached.
    void giveUp();

    [[nodiscard]] bool isOver() const { return m_isAccepted.has_value(); }
    /// Whether the window took the frame, perhaps with a size of its own choice.
    [[nodiscard]] bool isAccepted() const { return m_isAccepted.value_or(false); }
    /// Whether a person moved it meanwhile, which nobody contests.
    [[nodiscard]] bool isLeftToPerson() const { return m_isLeftToPerson; }
    /// Whether it has the frame it was asked to take, as far as its own rules allow, and the
    /// states, if they can be had.
    [[nodiscard]] bool isExact() const;
    [[nodiscard]] bool isOnDesktop() const { return m_reading.isOnDesktop; }
    [[nodiscard]] bool hasStates() const;
    [[nodiscard]] WindowStates states() const { return m_reading.states; }
    /// Those that it is to have next.
    [[nodiscard]] WindowStates statesToSet() const;
    /// Let go while it still changed: a slow program has not come to its end yet.
    [[nodiscard]] bool isRestless() const { return m_isRestless; }
    [[nodiscard]] bool isUnread() const { return m_isUnread; }
    /// Something was sent and the window has not shown any change since.
    [[nodiscard]] bool isUnanswered() const { return m_isUnanswered; }
    /// Had to be put into other states, after which programs may move it once more.
    [[nodiscard]] bool hasChangedStates() const { return m_hasChangedStates; }
    /// Where it was when it was last read; meaningful unless the window is gone.
    [[nodiscard]] const QRectF& frame() const { return m_reading.frame; }
    [[nodiscard]] const QRectF& target() const { return m_goal.frame; }

private:
    [[nodiscard]] bool isFilling() const { return bool(m_reading.states & fillingStates); }
    [[nodiscard]] bool hasFrame() const;
    [[nodiscard]] bool fillsItsPlace() const;
    [[nodiscard]] bool isInPosition() const;
    [[nodiscard]] std::chrono::milliseconds patience() const;
    [[nodiscard]] bool isHopeless(Time now, bool isQuiet) const;
    void noteProgress(const FrameReading& reading, Time now);
    void beginStage();
    /// Goes on without what the window manager does not do; false when that changes nothing.
    bool goOnWithout();
    Step approach(Time now, bool isQuiet);
    Step changeStates(Time now, bool isQuiet);
    Step correct(Time now, bool isQuiet);
    Step sent(Step step, Time now);

    FrameGoal m_goal;
    /// When it was last read.
    std::optional<QRectF> m_stoodAt;
    FrameReading m_reading;
    /// The frame at the time of the last move request.
    std::optional<QRectF> m_frameBefore;
    Step m_lastMove = Step::wait;
    int m_attempts = 0;
    Time m_lastActivity;
    bool m_isUnread = true;
    bool m_isUnanswered = false;
    /// When the frame first changed in answer to a request, since something else last did.
    std::optional<Time> m_reactedAt;
    bool m_hasReacted = false;
    bool m_hasChangedStates = false;
    std::optional<WindowStates> m_statesAsked;
    /// It has had its frame, and only states are missing.
    bool m_isPlaced = false;
    bool m_isDesktopGivenUp = false;
    bool m_areStatesGivenUp = false;
    bool m_isLeftToPerson = false;
    bool m_isRestless = false;
    std::optional<bool> m_isAccepted;
};

} // namespace trovell
