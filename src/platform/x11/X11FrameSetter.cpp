// SPDX-License-Identifier: MIT

#include "platform/x11/X11FrameSetter.h"

#include "platform/x11/X11WindowId.h"
#include "platform/x11/X11WindowReader.h"

#include <algorithm>

#include <poll.h>

namespace trovell {

namespace {

using Clock = std::chrono::steady_clock;
using Step = FrameNegotiation::Step;

void selectEvents(const X11Connection& connection, xcb_window_t window)
{
    const quint32 mask = XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE;
    // Of the requests that have no reply only this one can fail, when the window is gone; the
    // error arrives among the events and is dropped there.
    xcb_change_window_attributes(connection.get(), window, XCB_CW_EVENT_MASK, &mask);
}

/// How far outside its frame a window can be taken hold of.
constexpr int grip = 10;

/// Where the pointer is while a button is pressed.
std::optional<QPointF> holdingPointer(const X11Connection& connection,
                                      xcb_query_pointer_cookie_t request)
{
    constexpr quint16 buttons = XCB_BUTTON_MASK_1 | XCB_BUTTON_MASK_2 | XCB_BUTTON_MASK_3;
    const auto pointer = connection.reply<xcb_query_pointer_reply>(request);
    if (!pointer || (pointer->mask & buttons) == 0)
        return std::nullopt;
    return QPointF(pointer->root_x, pointer->root_y);
}

/// Nobody has so many, whatever was stored.
constexpr quint32 mostDesktops = 36;

/// States that this window manager cannot set are not asked for.
QList<FramePass::Request> settable(QList<FramePass::Request> requests, WindowStates states)
{
    for (FramePass::Request& request : requests) {
        if (request.goal.states)
            *request.goal.states &= states;
    }
    return requests;
}

bool concernsFrame(xcb_atom_t property, const X11Atoms& atoms)
{
    return property == atoms.netWmState || property == atoms.netWmDesktop ||
           property == atoms.netFrameExtents || property == atoms.gtkFrameExtents ||
           property == XCB_ATOM_WM_NORMAL_HINTS;
}

} // namespace

class X11FrameSetter::ReadingRequest {
public:
    ReadingRequest(const X11Connection& connection, xcb_window_t window)
        : m_frame(connection, window),
          m_states(connection.requestProperty(window, connection.atoms().netWmState)),
          m_desktop(connection.requestProperty(window, connection.atoms().netWmDesktop)),
          m_hints(connection.requestProperty(window, XCB_ATOM_WM_NORMAL_HINTS))
    {
    }

    std::optional<FrameReading> receive(const X11Connection& connection, Window& window,
                                        const QRectF& target, WindowStates settableStates,
                                        const std::optional<QPointF>& holdingPointer) const
    {
        const auto geometry = m_frame.receive(connection);
        const auto states = propertyNumbers(connection.reply(m_states));
        const auto desktop = propertyNumbers(connection.reply(m_desktop));
        const auto hints = propertyNumbers(connection.reply(m_hints));
        if (!geometry)
            return std::nullopt;
        window.geometry = *geometry;
        window.hints = makeSizeHints(hints);
        const PixelRectangle allowed =
            allowedFrame(pixelsFromFrame(target), window.geometry, window.hints);
        const QRectF frame = frameFromPixels(visibleFrame(*geometry));
        const bool isHeld =
            holdingPointer && frame.adjusted(-grip, -grip, grip, grip).contains(*holdingPointer);
        return FrameReading{
            frame, frameFromPixels(allowed), statesOf(states, connection.atoms()) & settableStates,
            isHeld, !window.desktop || desktop.isEmpty() || desktop.first() == *window.desktop};
    }

private:
    X11FrameRequest m_frame;
    xcb_get_property_cookie_t m_states;
    xcb_get_property_cookie_t m_desktop;
    xcb_get_property_cookie_t m_hints;
};

X11FrameSetter::X11FrameSetter(const X11Server& server, const QList<FramePass::Request>& requests,
                               WindowClaims& claims)
    : m_connection(server), m_fence(m_connection), m_facts(readDesktopFacts(m_connection)),
      m_pass(settable(requests, m_facts.states), claims, Clock::now())
{
    quint32 lastDesktop = 0;
    for (const FramePass::Request& request : requests) {
        const xcb_window_t window = windowOf(request.window);
        m_positions.insert(window, m_windows.size());
        m_windows.push_back({.id = window});
        const auto& place = request.virtualDesktop;
        if (!place || m_facts.virtualDesktopCount == 0)
            continue;
        m_windows.back().desktop = desktopNumber(*place);
        lastDesktop = std::max(lastDesktop, place->isAll ? 0 : desktopNumber(*place));
    }
    if (lastDesktop >= m_facts.virtualDesktopCount && lastDesktop < mostDesktops)
        makeDesktops(m_connection, lastDesktop + 1);
}

QList<FrameOutcome> X11FrameSetter::run()
{
    // Before the first reading, so that no change is missed in between.
    for (const Window& window : m_windows)
        selectEvents(m_connection, window.id);
    readUnread();
    negotiate();
    return m_pass.finish();
}

void X11FrameSetter::guard()
{
    m_pass.beginGuard(Clock::now());
    negotiate();
}

void X11FrameSetter::negotiate()
{
    while (m_connection.isAlive()) {
        sendSteps();
        if (m_pass.isOver(Clock::now()))
            break;
        waitForEvents(m_pass.nextWakeUp(Clock::now(), m_fence.isPending()));
        if (m_pass.isTimeToRead(Clock::now()))
            readUnread();
    }
    readUnread();
}

void X11FrameSetter::sendSteps()
{
    const auto commands = m_pass.nextSteps(Clock::now(), m_fence.isPending());
    for (const FramePass::Command& command : commands)
        send(command);
    if (!commands.empty())
        m_fence.put();
    xcb_flush(m_connection.get());
}

void X11FrameSetter::send(const FramePass::Command& command)
{
    const Window& window = m_windows[command.position];
    if (command.step == Step::setDesktop)
        return sendDesktop(m_connection, window.id, window.desktop.value_or(0));
    if (command.step == Step::setStates)
        return sendStates(m_connection, window.id, command.states, command.statesToSet);
    const PixelRectangle target = pixelsFromFrame(m_pass.target(command.position));
    const auto sendMove = [&](int offset) {
        m_connection.sendToRoot(window.id, m_connection.atoms().netMoveresizeWindow,
                                moveResizeData(target, window.geometry, window.hints, offset));
    };
    if (command.step == Step::moveAround)
        sendMove(1);
    sendMove(0);
}

void X11FrameSetter::readUnread()
{
    std::vector<std::pair<std::size_t, ReadingRequest>> requests;
    for (const std::size_t position : m_pass.unread())
        requests.emplace_back(position, ReadingRequest(m_connection, m_windows[position].id));
    if (requests.empty())
        return;
    const auto pointerRequest = xcb_query_pointer(m_connection.get(), m_connection.root());
    m_connection.finishBatch();
    const auto now = Clock::now();
    const std::optional<QPointF> pointer = holdingPointer(m_connection, pointerRequest);
    for (const auto& [position, request] : requests) {
        const auto reading = request.receive(m_connection, m_windows[position],
                                             m_pass.target(position), m_facts.states, pointer);
        // Without a server nothing is known, not even that the window is gone.
        if (!m_connection.isAlive())
            return;
        m_pass.read(position, reading, now);
    }
}

void X11FrameSetter::waitForEvents(FramePass::Time until)
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
    if (m_fence.noteEvent(event))
        return m_pass.noteProgress(Clock::now());
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

void X11FrameSetter::noteChange(xcb_window_t window)
{
    const auto position = m_positions.constFind(window);
    if (position != m_positions.cend())
        m_pass.noteChange(*position, Clock::now());
}

} // namespace trovell
