// SPDX-License-Identifier: MIT

#include "platform/x11/X11WindowStates.h"

#include <algorithm>
#include <array>
#include <chrono>

#include <poll.h>

namespace trovell {

namespace {

constexpr quint32 fromPager = 2;

std::array<std::pair<xcb_atom_t, WindowState>, 6> stateTable(const X11Atoms& atoms)
{
    return {{{atoms.netWmStateHidden, WindowState::minimized},
             {atoms.netWmStateMaximizedHorz, WindowState::maximizedHorizontally},
             {atoms.netWmStateMaximizedVert, WindowState::maximizedVertically},
             {atoms.netWmStateFullscreen, WindowState::fullScreen},
             {atoms.netWmStateShaded, WindowState::shaded},
             {atoms.netWmStateAbove, WindowState::above}}};
}

void sendChanges(const X11Connection& connection, xcb_window_t window, WindowStates states,
                 bool isAdded)
{
    const X11Atoms& atoms = connection.atoms();
    const WindowStates maximized =
        WindowState::maximizedHorizontally | WindowStates(WindowState::maximizedVertically);
    const auto send = [&](xcb_atom_t first, xcb_atom_t second) {
        connection.sendToRoot(window, atoms.netWmState,
                              {isAdded ? 1U : 0U, first, second, fromPager, 0});
    };
    // Both directions at once, so that no window manager maximizes twice.
    if ((states & maximized) == maximized) {
        send(atoms.netWmStateMaximizedHorz, atoms.netWmStateMaximizedVert);
        states &= ~maximized;
    }
    for (const auto& [atom, state] : stateTable(atoms)) {
        if (states & state)
            send(atom, 0);
    }
}

quint32 desktopCount(const X11Connection& connection)
{
    const auto count =
        connection.requestProperty(connection.root(), connection.atoms().netNumberOfDesktops);
    connection.finishBatch();
    return propertyNumbers(connection.reply(count)).value(0);
}

} // namespace

WindowStates statesOf(const QList<quint32>& atomList, const X11Atoms& atoms)
{
    WindowStates found;
    for (const auto& [atom, state] : stateTable(atoms))
        found.setFlag(state, atomList.contains(atom));
    return found;
}

quint32 desktopNumber(const DesktopPlace& place)
{
    constexpr quint32 allDesktops = 0xffffffff;
    return place.isAll ? allDesktops : static_cast<quint32>(place.index);
}

X11DesktopFacts readDesktopFacts(const X11Connection& connection)
{
    const X11Atoms& atoms = connection.atoms();
    const auto supported = connection.requestProperty(connection.root(), atoms.netSupported);
    const auto count = connection.requestProperty(connection.root(), atoms.netNumberOfDesktops);
    connection.finishBatch();
    const auto features = propertyNumbers(connection.reply(supported));
    X11DesktopFacts facts;
    facts.states = statesOf(features, atoms) & ~WindowStates(WindowState::minimized);
    const quint32 desktopCount = propertyNumbers(connection.reply(count)).value(0);
    if (features.contains(atoms.netWmDesktop))
        facts.virtualDesktopCount = desktopCount;
    return facts;
}

void sendStates(const X11Connection& connection, xcb_window_t window, WindowStates from,
                WindowStates to)
{
    sendChanges(connection, window, from & ~to, false);
    sendChanges(connection, window, to & ~from, true);
}

void sendDesktop(const X11Connection& connection, xcb_window_t window, quint32 desktop)
{
    connection.sendToRoot(window, connection.atoms().netWmDesktop, {desktop, fromPager, 0, 0, 0});
}

void makeDesktops(const X11Connection& connection, quint32 count)
{
    using Clock = std::chrono::steady_clock;
    const auto deadline = Clock::now() + std::chrono::seconds(1);
    const quint32 mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(connection.get(), connection.root(), XCB_CW_EVENT_MASK, &mask);
    connection.sendToRoot(connection.root(), connection.atoms().netNumberOfDesktops,
                          {count, 0, 0, 0, 0});
    // Windows cannot be sent to what is not there yet.
    while (connection.isAlive() && desktopCount(connection) < count && Clock::now() < deadline) {
        // Events that came with a reply do not wake the socket.
        if (X11Reply<xcb_generic_event_t>(xcb_poll_for_event(connection.get())))
            continue;
        pollfd descriptor = {xcb_get_file_descriptor(connection.get()), POLLIN, 0};
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
        ::poll(&descriptor, 1, static_cast<int>(std::max(left.count(), decltype(left.count()){0})));
    }
    const quint32 nothing = XCB_EVENT_MASK_NO_EVENT;
    xcb_change_window_attributes(connection.get(), connection.root(), XCB_CW_EVENT_MASK, &nothing);
}

} // namespace trovell
