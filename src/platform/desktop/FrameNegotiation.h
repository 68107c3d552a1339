// SPDX-License-Identifier: MIT
//
// Brings one window to a frame, as a dialogue with a window manager that answers late, rounds, or
// drops requests. Decides only: someone else sends what it asks for and tells it what came back.
// Values and given times, any thread.
#pragma once

#include <QRectF>

#include <chrono>
#include <optional>

namespace trovell {

/// What was read of a window at one moment.
struct FrameReading {
    /// What the user sees of the window.
    QRectF frame;
    /// What becomes of the frame that it is asked to take, by the window's own rules for its size.
    QRectF allowedFrame;
    /// It is maximized in a direction or full screen, and so has no frame of its own.
    bool hasFillingState = false;
    /// Someone holds it with the mouse.
    bool isHeld = false;
};

class FrameNegotiation {
public:
    using Time = std::chrono::steady_clock::time_point;

    enum class Step {
        wait,
        takeOffStates,
        move,
        /// Move one pixel aside and then into place: some window managers drop a request that
        /// equals the rectangle they remember.
        moveAround,
    };

    /// `stoodAt`: where the window is known to have been.
    explicit FrameNegotiation(const QRectF& target, const std::optional<QRectF>& stoodAt = {})
        : m_target(target), m_stoodAt(stoodAt)
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
    /// Whether it has the frame it was asked to take, as far as its own rules allow.
    [[nodiscard]] bool isExact() const;
    [[nodiscard]] bool isUnread() const { return m_isUnread; }
    /// Something was sent and the window has not shown any change since.
    [[nodiscard]] bool isUnanswered() const { return m_isUnanswered; }
    /// Had to be taken out of a state that fills the display.
    [[nodiscard]] bool hadFillingState() const { return m_hadFillingState; }
    /// Where it was when it was last read; meaningful unless the window is gone.
    [[nodiscard]] const QRectF& frame() const { return m_reading.frame; }
    [[nodiscard]] const QRectF& target() const { return m_target; }

private:
    [[nodiscard]] bool isInPosition() const;
    [[nodiscard]] std::chrono::milliseconds patience() const;
    [[nodiscard]] bool isHopeless(Time now, bool isQuiet) const;
    Step takeOffStates(Time now, bool isQuiet);
    Step correct(Time now, bool isQuiet);
    Step sent(Step step, Time now);

    QRectF m_target;
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
    /// When the frame first changed in answer to a request.
    std::optional<Time> m_reactedAt;
    bool m_hadFillingState = false;
    bool m_isLeftToPerson = false;
    std::optional<bool> m_isAccepted;
};

} // namespace trovell
