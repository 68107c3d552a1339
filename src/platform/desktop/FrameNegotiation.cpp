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
    noteProgress(*reading, now);
    m_reading = *reading;
    const bool hasMoved = m_stoodAt && !isSameRectangle(*m_stoodAt, m_reading.frame);
    m_stoodAt = m_reading.frame;
    if (!m_isPlaced && hasFrame() && (!isFilling() || fillsItsPlace())) {
        m_isPlaced = true;
        if (m_goal.states)
            beginStage();
    }
    m_isLeftToPerson = hasMoved && m_reading.isHeld && !isExact();
    if (m_isLeftToPerson)
        m_isAccepted = false;
}

void FrameNegotiation::noteProgress(const FrameReading& reading, Time now)
{
    const bool isNextStage =
        reading.states != m_reading.states || reading.isOnDesktop != m_reading.isOnDesktop;
    const bool hasReacted = m_frameBefore && !isSameRectangle(reading.frame, *m_frameBefore);
    m_hasReacted = m_hasReacted || hasReacted;
    if (isNextStage && m_goal.states)
        return beginStage();
    if (isNextStage)
        m_attempts = 0;
    if (hasReacted)
        m_reactedAt = m_reactedAt.value_or(now);
}

void FrameNegotiation::beginStage()
{
    m_attempts = 0;
    m_reactedAt.reset();
}

void FrameNegotiation::changed(Time now)
{
    m_isUnread = true;
    m_isUnanswered = false;
    m_lastActivity = now;
}

bool FrameNegotiation::hasStates() const
{
    return !m_goal.states || m_reading.states == *m_goal.states;
}

WindowStates FrameNegotiation::statesToSet() const
{
    if (m_isPlaced && m_goal.states)
        return *m_goal.states;
    // A shaded window shows less than its frame.
    const WindowStates inTheWay =
        m_goal.states ? fillingStates | WindowState::shaded : fillingStates;
    return m_reading.states & ~inTheWay;
}

/// The desktop decides about the directions in which it fills a display; it is the right one.
bool FrameNegotiation::fillsItsPlace() const
{
    const bool isWanted =
        m_goal.states && (m_reading.states & fillingStates) == (*m_goal.states & fillingStates);
    const auto meets = [](double start, double length, double otherStart, double otherLength) {
        const double center = start + length / 2;
        return center >= otherStart && center <= otherStart + otherLength;
    };
    const QRectF& frame = m_reading.frame;
    const QRectF& goal = m_goal.frame;
    return isWanted && meets(goal.x(), goal.width(), frame.x(), frame.width()) &&
           meets(goal.y(), goal.height(), frame.y(), frame.height());
}

bool FrameNegotiation::hasFrame() const
{
    const bool isAtTarget = isSameRectangle(m_reading.frame, m_goal.frame);
    if (!isFilling())
        return isAtTarget ||
               (m_stoodAt && isSameRectangle(m_reading.frame, m_reading.allowedFrame));
    // A window that fills a display and is in place was right before anything was asked of it.
    return m_goal.states ? fillsItsPlace() : isAtTarget && !m_hasChangedStates;
}

bool FrameNegotiation::isExact() const
{
    return hasFrame() && (hasStates() || m_areStatesGivenUp) &&
           (m_reading.isOnDesktop || m_isDesktopGivenUp);
}

bool FrameNegotiation::isInPosition() const
{
    return !isFilling() && m_reading.frame.topLeft() == m_goal.frame.topLeft();
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
    if (isHopeless(now, isQuiet) && !goOnWithout()) {
        giveUp();
        m_isRestless = !isAccepted() && !isQuiet;
        return Step::wait;
    }
    if (!isExact())
        return approach(now, isQuiet);
    // Programs draw their decorations anew some time after they changed such a state.
    if (!m_hasChangedStates || isQuiet)
        m_isAccepted = true;
    return Step::wait;
}

bool FrameNegotiation::isHopeless(Time now, bool isQuiet) const
{
    return m_reactedAt ? now >= *m_reactedAt + longestUnrest
                       : isQuiet && m_attempts >= mostAttemptsInSilence;
}

bool FrameNegotiation::goOnWithout()
{
    if (!m_reading.isOnDesktop && !m_isDesktopGivenUp)
        m_isDesktopGivenUp = true;
    else if (m_isPlaced && !hasStates() && !m_areStatesGivenUp)
        m_areStatesGivenUp = true;
    else
        return false;
    beginStage();
    return true;
}

FrameNegotiation::Step FrameNegotiation::approach(Time now, bool isQuiet)
{
    const bool isFirst = m_attempts == 0;
    if (!m_reading.isOnDesktop && !m_isDesktopGivenUp)
        return isFirst || isQuiet ? sent(Step::setDesktop, now) : Step::wait;
    if (m_isPlaced ? !hasStates() : statesToSet() != m_reading.states)
        return changeStates(now, isQuiet);
    return correct(now, isQuiet);
}

FrameNegotiation::Step FrameNegotiation::changeStates(Time now, bool isQuiet)
{
    // They may come one by one.
    if (m_statesAsked == statesToSet() && !isQuiet)
        return Step::wait;
    m_statesAsked = statesToSet();
    m_hasChangedStates = true;
    return sent(Step::setStates, now);
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
        m_isAccepted = isExact() || (m_hasReacted && isInPosition());
}

} // namespace trovell
