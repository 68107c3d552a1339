// SPDX-License-Identifier: MIT

#include "platform/desktop/FrameNegotiation.h"

#include "display/Rectangle.h"

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

void FrameNegotiation::read(const std::optional<FrameReading>& reading, Time now)
{
    m_isUnread = false;
    if (isOver())
        return;
    if (!reading) {
        m_isAccepted = false;
        return;
    }
    if (m_frameBefore && !isSameRectangle(reading->frame, *m_frameBefore))
        m_reactedAt = m_reactedAt.value_or(now);
    if (m_reading.hasFillingState && !reading->hasFillingState)
        m_attempts = 0;
    m_reading = *reading;
    const bool hasMoved = m_stoodAt && !isSameRectangle(*m_stoodAt, m_reading.frame);
    m_stoodAt = m_reading.frame;
    m_isLeftToPerson = hasMoved && m_reading.isHeld && !isExact();
    if (m_isLeftToPerson)
        m_isAccepted = false;
}

void FrameNegotiation::changed(Time now)
{
    m_isUnread = true;
    m_isUnanswered = false;
    m_lastActivity = now;
}

bool FrameNegotiation::isExact() const
{
    const bool isAtTarget = isSameRectangle(m_reading.frame, m_target);
    // A window that fills a display and is in place was right before anything was asked of it.
    if (m_reading.hasFillingState)
        return isAtTarget && !m_hadFillingState;
    return isAtTarget || (m_stoodAt && isSameRectangle(m_reading.frame, m_reading.allowedFrame));
}

bool FrameNegotiation::isInPosition() const
{
    return !m_reading.hasFillingState && m_reading.frame.x() == m_target.x() &&
           m_reading.frame.y() == m_target.y();
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
    if (!isExact())
        return m_reading.hasFillingState ? takeOffStates(now, isQuiet) : correct(now, isQuiet);
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
    const bool hadNoEffect = m_frameBefore && isSameRectangle(*m_frameBefore, m_reading.frame);
    if (hadNoEffect && m_reactedAt && m_lastMove == Step::moveAround) {
        giveUp();
        return Step::wait;
    }
    m_frameBefore = m_reading.frame;
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
