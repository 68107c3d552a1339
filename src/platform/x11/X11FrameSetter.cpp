// SPDX-License-Identifier: MIT

#include "platform/x11/X11FrameSetter.h"

#include "platform/x11/X11WindowReader.h"

#include <algorithm>

#include <poll.h>

namespace trovell {

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using Step = FrameNegotiation::Step;

/// A window manager that hangs is waited for so long.
constexpr std::chrono::milliseconds longestStandstill = 1900ms;
/// Far more than any pass takes; ends one with windows that never stop changing.
constexpr std::chrono::milliseconds longestPass = 10s;
constexpr std::chrono::milliseconds guardDuration = 1000ms;
constexpr int mostCorrections = 4;
/// Changes come in bursts: they are read together once a burst pauses, or has lasted too long.
constexpr std::chrono::milliseconds burstPause = 10ms;
constexpr std::chrono::milliseconds longestBurst = 100ms;

class ReadingRequest {
public:
    ReadingRequest(const X11Connection& connection, xcb_window_t window)
        : m_frame(connection, window),
          m_states(connection.requestProperty(window, connection.atoms().netWmState)),
          m_hints(connection.requestProperty(window, XCB_ATOM_WM_NORMAL_HINTS))
    {
    }

    std::optional<WindowReading> receive(const X11Connection& connection) const
    {
        const X11Atoms& atoms = connection.atoms();
        const auto window = m_frame.receive(connection);
        const auto states = propertyNumbers(connection.reply(m_states));
        const auto hints = propertyNumbers(connection.reply(m_hints));
        if (!window)
            return std::nullopt;
        const bool isFilling = states.contains(atoms.netWmStateFullscreen) ||
                               states.contains(atoms.netWmStateMaximizedHorz) ||
                               states.contains(atoms.netWmStateMaximizedVert);
        return WindowReading{*window, makeSizeHints(hints), isFilling};
    }

private:
    X11FrameRequest m_frame;
    xcb_get_property_cookie_t m_states;
    xcb_get_property_cookie_t m_hints;
};

void selectEvents(const X11Connection& connection, xcb_window_t window)
{
    const quint32 mask = XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE;
    // Of the requests that have no reply only this one can fail, when the window is gone; the
    // error arrives among the events and is dropped there.
    xcb_change_window_attributes(connection.get(), window, XCB_CW_EVENT_MASK, &mask);
}

bool concernsFrame(xcb_atom_t property, const X11Atoms& atoms)
{
    return property == atoms.netWmState || property == atoms.netFrameExtents ||
           property == atoms.gtkFrameExtents || property == XCB_ATOM_WM_NORMAL_HINTS;
}

} // namespace

X11FrameSetter::X11FrameSetter(const X11Server& server, const QList<Request>& requests,
                               WindowClaims& claims)
    : m_connection(server), m_fence(m_connection), m_claims(claims), m_claim(claims.newClaim())
{
    for (const Request& request : requests) {
        m_positions.insert(request.window, m_windows.size());
        m_windows.push_back({request, FrameNegotiation(request.frame), {}});
        m_claims.take(request.window, m_claim);
    }
}

QList<bool> X11FrameSetter::run()
{
    const Time begin = Clock::now();
    m_lastProgress = m_lastEvent = begin;
    // Before the first reading, so that no change is missed in between.
    for (const Window& window : m_windows)
        selectEvents(m_connection, window.request.window);
    readUnread();
    negotiate(begin + longestPass);
    QList<bool> answers;
    for (Window& window : m_windows) {
        window.negotiation.giveUp();
        noteSettled(window);
        answers.append(window.negotiation.isAccepted());
    }
    return answers;
}

bool X11FrameSetter::hasWindowsToGuard() const
{
    return std::any_of(m_windows.begin(), m_windows.end(),
                       [](const Window& window) { return window.isWatched; });
}

void X11FrameSetter::guard()
{
    m_isGuarding = true;
    m_lastProgress = Clock::now();
    negotiate(Clock::now() + guardDuration);
}

void X11FrameSetter::negotiate(Time end)
{
    while (m_connection.isAlive()) {
        sendSteps();
        const Time deadline = m_isGuarding ? end : std::min(end, m_lastEvent + longestStandstill);
        if ((isOver() && !m_isGuarding) || Clock::now() >= deadline)
            break;
        waitForEvents(nextWakeUp(deadline));
        if (isTimeToRead(Clock::now()))
            readUnread();
    }
    readUnread();
}

void X11FrameSetter::sendSteps()
{
    const Time now = Clock::now();
    bool hasSent = false;
    for (Window& window : m_windows) {
        const Step step = window.negotiation.nextStep(now, progress(now));
        noteSettled(window);
        if (step == Step::wait)
            continue;
        if (window.settledFrame && !mayCorrect(window)) {
            window.negotiation.giveUp();
            continue;
        }
        send(window, step);
        hasSent = true;
    }
    if (hasSent)
        m_fence.put();
    xcb_flush(m_connection.get());
}

void X11FrameSetter::noteSettled(Window& window) const
{
    if (window.settledFrame || !window.negotiation.isAccepted())
        return;
    window.settledFrame = visibleFrame(window.negotiation.reading().window);
    window.isWatched = window.request.isYoung || window.negotiation.hadFillingState();
}

bool X11FrameSetter::mayCorrect(Window& window) const
{
    window.isWatched =
        m_claims.isHeld(window.request.window, m_claim) && ++window.corrections <= mostCorrections;
    return window.isWatched;
}

void X11FrameSetter::send(const Window& window, Step step)
{
    if (step == Step::takeOffStates)
        return takeOffStates(window);
    const FrameNegotiation& negotiation = window.negotiation;
    const auto sendMove = [&](int offset) {
        m_connection.sendToRoot(window.request.window, m_connection.atoms().netMoveresizeWindow,
                                moveResizeData(negotiation.target(), negotiation.reading().window,
                                               negotiation.reading().hints, offset));
    };
    if (step == Step::moveAround)
        sendMove(1);
    sendMove(0);
}

void X11FrameSetter::takeOffStates(const Window& window)
{
    // EWMH section 5: _NET_WM_STATE client messages; two states at a time.
    constexpr quint32 remove = 0;
    constexpr quint32 fromPager = 2;
    const X11Atoms& atoms = m_connection.atoms();
    m_connection.sendToRoot(window.request.window, atoms.netWmState,
                            {remove, atoms.netWmStateFullscreen, 0, fromPager, 0});
    m_connection.sendToRoot(
        window.request.window, atoms.netWmState,
        {remove, atoms.netWmStateMaximizedHorz, atoms.netWmStateMaximizedVert, fromPager, 0});
}

void X11FrameSetter::readUnread()
{
    std::vector<std::pair<Window*, ReadingRequest>> requests;
    for (Window& window : m_windows) {
        if (!window.negotiation.isOver() && window.negotiation.isUnread())
            requests.emplace_back(&window, ReadingRequest(m_connection, window.request.window));
    }
    m_unreadSince.reset();
    if (requests.empty())
        return;
    m_connection.finishBatch();
    const Time now = Clock::now();
    for (const auto& [window, request] : requests)
        window->negotiation.read(request.receive(m_connection), now);
}

void X11FrameSetter::waitForEvents(Time until)
{
    // Events that came with a reply are in memory already and do not wake the socket.
    if (takeEvents())
        return;
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(until - Clock::now());
    pollfd descriptor = {xcb_get_file_descriptor(m_connection.get()), POLLIN, 0};
    ::poll(&descriptor, 1, std::max(0, static_cast<int>(left.count())));
    takeEvents();
}

bool X11FrameSetter::takeEvents()
{
    bool hasTaken = false;
    while (const auto event =
               X11Reply<xcb_generic_event_t>(xcb_poll_for_event(m_connection.get()))) {
        noteEvent(*event);
        hasTaken = true;
    }
    return hasTaken;
}

void X11FrameSetter::noteEvent(const xcb_generic_event_t& event)
{
    if (m_fence.noteEvent(event)) {
        m_lastProgress = m_lastEvent = Clock::now();
        return;
    }
    constexpr quint8 withoutSendBit = 0x7f;
    switch (event.response_type & withoutSendBit) {
    case XCB_CONFIGURE_NOTIFY:
        return noteChange(reinterpret_cast<const xcb_configure_notify_event_t&>(event).window);
    case XCB_DESTROY_NOTIFY:
        return noteChange(reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window);
    case XCB_PROPERTY_NOTIFY: {
        const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        if (concernsFrame(change.atom, m_connection.atoms()))
            noteChange(change.window);
        return;
    }
    default:
        return;
    }
}

void X11FrameSetter::noteChange(xcb_window_t id)
{
    const auto position = m_positions.constFind(id);
    if (position == m_positions.cend())
        return;
    Window& window = m_windows[*position];
    // Also while others of the pass are not in place yet.
    if (window.isWatched && window.negotiation.isOver())
        window.negotiation = FrameNegotiation(*window.settledFrame);
    if (window.negotiation.isOver())
        return;
    const Time now = Clock::now();
    if (window.negotiation.isUnanswered())
        m_lastProgress = now;
    window.negotiation.changed(now);
    m_lastEvent = now;
    m_unreadSince = m_unreadSince.value_or(now);
}

bool X11FrameSetter::isTimeToRead(Time now) const
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

X11FrameSetter::Time X11FrameSetter::progress(Time now) const
{
    return m_fence.isPending() ? now : m_lastProgress;
}

X11FrameSetter::Time X11FrameSetter::nextWakeUp(Time deadline) const
{
    Time next = deadline;
    if (m_unreadSince)
        next = std::min({next, m_lastEvent + burstPause, *m_unreadSince + longestBurst});
    for (const Window& window : m_windows) {
        if (!window.negotiation.isOver() && !window.negotiation.isUnread())
            next = std::min(next, window.negotiation.nextStepAt(progress(Clock::now())));
    }
    return next;
}

bool X11FrameSetter::isOver() const
{
    return std::all_of(m_windows.begin(), m_windows.end(),
                       [](const Window& window) { return window.negotiation.isOver(); });
}

} // namespace trovell
