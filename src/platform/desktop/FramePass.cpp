// SPDX-License-Identifier: MIT

#include "platform/desktop/FramePass.h"

#include <algorithm>

namespace trovell {

namespace {

using namespace std::chrono_literals;

/// A window manager that hangs is waited for so long.
constexpr std::chrono::milliseconds longestStandstill = 1900ms;
/// Far more than any pass takes; ends one with windows that never stop changing.
constexpr std::chrono::milliseconds longestPass = 10s;
constexpr std::chrono::milliseconds guardDuration = 1000ms;
/// A program puts itself back once; what moves the window after that means it.
constexpr int mostCorrections = 1;
/// A burst is over once it pauses, or has lasted too long.
constexpr std::chrono::milliseconds burstPause = 10ms;
constexpr std::chrono::milliseconds longestBurst = 100ms;

} // namespace

FramePass::FramePass(const QList<Request>& requests, WindowClaims& claims, Time now)
    : m_claims(claims), m_claim(claims.newClaim()), m_end(now + longestPass), m_lastProgress(now),
      m_lastEvent(now)
{
    for (const Request& request : requests) {
        m_windows.push_back({request, FrameNegotiation(request.goal)});
        m_claims.take(request.window, m_claim);
    }
}

FramePass::~FramePass()
{
    m_claims.release(m_claim);
}

const QRectF& FramePass::target(std::size_t position) const
{
    return m_windows[position].negotiation.target();
}

std::vector<std::size_t> FramePass::unread() const
{
    std::vector<std::size_t> positions;
    for (std::size_t position = 0; position < m_windows.size(); ++position) {
        const FrameNegotiation& negotiation = m_windows[position].negotiation;
        if (!negotiation.isOver() && negotiation.isUnread())
            positions.push_back(position);
    }
    return positions;
}

void FramePass::read(std::size_t position, const std::optional<FrameReading>& reading, Time now)
{
    m_unreadSince.reset();
    m_windows[position].negotiation.read(reading, now);
}

void FramePass::noteChange(std::size_t position, Time now)
{
    Window& window = m_windows[position];
    // Also while others of the pass are not in place yet.
    if (window.isWatched && window.negotiation.isOver())
        window.negotiation = FrameNegotiation({*window.settledFrame, window.request.goal.states},
                                              window.settledFrame);
    if (window.negotiation.isOver())
        return;
    if (window.negotiation.isUnanswered())
        m_lastProgress = now;
    window.negotiation.changed(now);
    m_lastEvent = now;
    m_unreadSince = m_unreadSince.value_or(now);
}

std::vector<FramePass::Command> FramePass::nextSteps(Time now, bool isBusy)
{
    std::vector<Command> commands;
    for (std::size_t position = 0; position < m_windows.size(); ++position) {
        Window& window = m_windows[position];
        const Step step = window.negotiation.nextStep(now, progress(now, isBusy));
        noteSettled(window);
        if (step == Step::wait)
            continue;
        if (window.settledFrame && !mayCorrect(window))
            window.negotiation.giveUp();
        else
            commands.push_back(
                {position, step, window.negotiation.states(), window.negotiation.statesToSet()});
    }
    return commands;
}

void FramePass::noteSettled(Window& window)
{
    if (window.settledFrame || !window.negotiation.isAccepted())
        return;
    window.settledFrame = window.negotiation.frame();
    window.isWatched = window.request.isYoung || window.negotiation.hasChangedStates();
}

bool FramePass::mayCorrect(Window& window) const
{
    window.isWatched =
        m_claims.isHeld(window.request.window, m_claim) && ++window.corrections <= mostCorrections;
    return window.isWatched;
}

bool FramePass::isTimeToRead(Time now) const
{
    if (!m_unreadSince)
        return false;
    const bool hasEachAnswered =
        std::all_of(m_windows.begin(), m_windows.end(), [](const Window& window) {
            return window.negotiation.isOver() || !window.negotiation.isUnanswered();
        });
    return hasEachAnswered || now >= m_lastEvent + burstPause ||
           now >= *m_unreadSince + longestBurst;
}

FramePass::Time FramePass::deadline() const
{
    return m_isGuarding ? m_end : std::min(m_end, m_lastEvent + longestStandstill);
}

FramePass::Time FramePass::nextWakeUp(Time now, bool isBusy) const
{
    // What a later pass took over is not worth a connection any more.
    Time next = m_isGuarding ? std::min(deadline(), now + longestBurst) : deadline();
    if (m_unreadSince)
        next = std::min({next, m_lastEvent + burstPause, *m_unreadSince + longestBurst});
    for (const Window& window : m_windows) {
        if (!window.negotiation.isOver() && !window.negotiation.isUnread())
            next = std::min(next, window.negotiation.nextStepAt(progress(now, isBusy)));
    }
    return next;
}

bool FramePass::isOver(Time now) const
{
    const bool isEachOver =
        std::all_of(m_windows.begin(), m_windows.end(),
                    [](const Window& window) { return window.negotiation.isOver(); });
    const bool isDone = m_isGuarding ? !hasWindowsToGuard() : isEachOver;
    return isDone || now >= deadline();
}

FrameOutcome FramePass::finish(Window& window)
{
    FrameNegotiation& negotiation = window.negotiation;
    const bool hasEnded = negotiation.isOver() && !negotiation.isRestless();
    negotiation.giveUp();
    noteSettled(window);
    if (negotiation.isLeftToPerson())
        return FrameOutcome::movedByPerson;
    if (negotiation.isAccepted() && !negotiation.isExact())
        return FrameOutcome::otherSize;
    if (negotiation.isAccepted() && !negotiation.isOnDesktop())
        return FrameOutcome::otherDesktop;
    if (negotiation.isAccepted())
        return negotiation.hasStates() ? FrameOutcome::taken : FrameOutcome::otherStates;
    return hasEnded ? FrameOutcome::refused : FrameOutcome::unanswered;
}

QList<FrameOutcome> FramePass::finish()
{
    QList<FrameOutcome> outcomes;
    for (Window& window : m_windows) {
        outcomes.append(finish(window));
    }
    return outcomes;
}

bool FramePass::hasWindowsToGuard() const
{
    return std::any_of(m_windows.begin(), m_windows.end(), [this](const Window& window) {
        return window.isWatched && m_claims.isHeld(window.request.window, m_claim);
    });
}

void FramePass::beginGuard(Time now)
{
    m_isGuarding = true;
    m_lastProgress = now;
    m_end = now + guardDuration;
}

} // namespace trovell
