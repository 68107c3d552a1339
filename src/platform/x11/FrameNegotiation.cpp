// SPDX-License-Identifier: MIT

#include "platform/x11/FrameNegotiation.h"

#include <algorithm>

namespace trovell {

namespace {

using namespace std::chrono_literals;

/// A window that changed is at rest after so long without another change.
constexpr std::chrono::milliseconds rest = 100ms;
/// A window that did not change at all is asked again after so long, then after twice that.
constexpr std::chrono::milliseconds silence = 150ms;
constexpr int mostAttemptsInSilence = 3;
/// A window that never comes to rest is let go after so long.
constexpr std::chrono::milliseconds longestUnrest = 1500ms;

} // namespace

FrameNegotiation::FrameNegotiation(const PixelRectangle& target) : m_target(target) {}

void FrameNegotiation::read(const std::optional<WindowReading>& reading, Time now)
{
    m_isUnread = false;
    if (isOver())
        return;
    if (!reading) {
        m_isAccepted = false;
        return;
    }
    if (m_frameBefore && visibleFrame(reading->window) != *m_frameBefore)
        m_reactedAt = m_reactedAt.value_or(now);
    if (m_reading.hasFillingState && !reading->hasFillingState)
        m_attempts = 0;
    m_reading = *reading;
}

void FrameNegotiation::changed(Time now)
{
    m_isUnread = true;
    m_isUnanswered = false;
    m_lastActivity = now;
}

bool FrameNegotiation::isExact() const
{
    const PixelRectangle frame = visibleFrame(m_reading.window);
    return !m_reading.hasFillingState &&
           (frame == m_target ||
            frame == allowedFrame(m_target, m_reading.window, m_reading.hints));
}

bool FrameNegotiation::isInPosition() const
{
    const PixelRectangle frame = visibleFrame(m_reading.window);
    return !m_reading.hasFillingState && frame.x == m_target.x && frame.y == m_target.y;
}

std::chrono::milliseconds FrameNegotiation::patience() const
{
    return m_reactedAt ? rest : silence * (1 << std::max(0, m_attempts - 1));
}

FrameNegotiation::Time FrameNegotiation::nextStepAt(Time lastProgress) const
{
    return std::max(m_lastActivity, lastProgress) + patience();
}

FrameNegotiation::Step FrameNegotiation::nextStep(Time now, Time lastProgress)
{
    if (isOver() || m_isUnread)
        return Step::wait;
    const bool isQuiet = now >= nextStepAt(lastProgress);
    if (isHopeless(now, isQuiet)) {
        giveUp();
        return Step::wait;
    }
    if (m_reading.hasFillingState)
        return takeOffStates(now, isQuiet);
    if (!isExact())
        return correct(now, isQuiet);
    // Programs draw their decorations anew some time after they left such a state.
    if (!m_hadFillingState || isQuiet)
        m_isAccepted = true;
    return Step::wait;
}

bool FrameNegotiation::isHopeless(Time now, bool isQuiet) const
{
    return m_reactedAt ? now >= *m_reactedAt + longestUnrest
                       : isQuiet && m_attempts >= mostAttemptsInSilence;
}

FrameNegotiation::Step FrameNegotiation::takeOffStates(Time now, bool isQuiet)
{
    if (m_hadFillingState && !isQuiet)
        return Step::wait;
    m_hadFillingState = true;
    return sent(Step::takeOffStates, now);
}

FrameNegotiation::Step FrameNegotiation::correct(Time now, bool isQuiet)
{
    const bool isFirst = m_lastMove == Step::wait;
    if (!isFirst && !isQuiet)
        return Step::wait;
    const PixelRectangle frame = visibleFrame(m_reading.window);
    const bool hadNoEffect = m_frameBefore == frame;
    if (hadNoEffect && m_reactedAt && m_lastMove == Step::moveAround) {
        giveUp();
        return Step::wait;
    }
    m_frameBefore = frame;
    m_lastMove = hadNoEffect ? Step::moveAround : Step::move;
    return sent(m_lastMove, now);
}

FrameNegotiation::Step FrameNegotiation::sent(Step step, Time now)
{
    ++m_attempts;
    m_isUnanswered = true;
    m_lastActivity = now;
    return step;
}

void FrameNegotiation::giveUp()
{
    if (!isOver())
        m_isAccepted = isExact() || (m_reactedAt && isInPosition());
}

} // namespace trovell
