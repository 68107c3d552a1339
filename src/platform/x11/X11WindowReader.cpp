// SPDX-License-Identifier: MIT

#include "platform/x11/X11WindowReader.h"

#include "platform/x11/X11WindowId.h"
#include "platform/x11/X11WindowStates.h"

#include <QHash>

#include <vector>

namespace trovell {

namespace {

std::optional<QString> textOf(const X11Connection& connection, xcb_get_property_cookie_t request)
{
    const QString text = propertyText(connection.reply(request), connection.atoms());
    return text.isEmpty() ? std::nullopt : std::optional(text);
}

/// All that is asked about one window.
class WindowRequest {
public:
    WindowRequest(const X11Connection& connection, const WindowId& id)
        : m_window(windowOf(id)), m_frame(connection, m_window),
          m_netState(request(connection, connection.atoms().netWmState)),
          m_state(request(connection, connection.atoms().wmState)),
          m_desktop(request(connection, connection.atoms().netWmDesktop)),
          m_netName(request(connection, connection.atoms().netWmName))
    {
        if (!hasUnicodeTitle(id))
            m_name = request(connection, XCB_ATOM_WM_NAME);
    }

    /// False when the window is gone.
    bool receive(const X11Connection& connection, bool tellsHidden, DesktopWindow& window) const
    {
        const auto decorated = m_frame.receive(connection);
        receiveStates(connection, tellsHidden, window);
        receiveDesktop(connection, window);
        window.title = receiveTitle(connection);
        if (decorated)
            window.frame = frameFromPixels(visibleFrame(*decorated));
        return decorated.has_value();
    }

private:
    xcb_get_property_cookie_t request(const X11Connection& connection, xcb_atom_t property) const
    {
        return connection.requestProperty(m_window, property);
    }

    void receiveStates(const X11Connection& connection, bool tellsHidden,
                       DesktopWindow& window) const
    {
        constexpr quint32 iconicState = 3; // ICCCM 4.1.3.1
        const auto states = propertyNumbers(connection.reply(m_netState));
        const auto state = propertyNumbers(connection.reply(m_state));
        window.isUnlisted = states.contains(connection.atoms().netWmStateSkipTaskbar);
        window.states = statesOf(states, connection.atoms());
        // Many window managers make windows of other virtual desktops iconic, too.
        if (!tellsHidden && state.value(0) == iconicState)
            window.states |= WindowState::minimized;
    }

    void receiveDesktop(const X11Connection& connection, DesktopWindow& window) const
    {
        constexpr quint32 allDesktops = 0xffffffff; // EWMH section 5
        const auto desktop = propertyNumbers(connection.reply(m_desktop));
        window.isOnAllDesktops = desktop.value(0) == allDesktops;
        if (!desktop.isEmpty() && !window.isOnAllDesktops)
            window.virtualDesktop = static_cast<int>(desktop.first());
    }

    std::optional<QString> receiveTitle(const X11Connection& connection) const
    {
        const auto title = textOf(connection, m_netName);
        const auto oldTitle = m_name ? textOf(connection, *m_name) : std::nullopt;
        return title ? title : oldTitle;
    }

    xcb_window_t m_window;
    X11FrameRequest m_frame;
    xcb_get_property_cookie_t m_netState;
    xcb_get_property_cookie_t m_state;
    xcb_get_property_cookie_t m_desktop;
    xcb_get_property_cookie_t m_netName;
    std::optional<xcb_get_property_cookie_t> m_name;
};

/// For windows that had a modern title when they were first seen, and have none any more.
void readLostTitles(const X11Connection& connection, QList<RunningApplication>& applications)
{
    std::vector<std::pair<DesktopWindow*, xcb_get_property_cookie_t>> requests;
    for (RunningApplication& application : applications) {
        for (DesktopWindow& window : application.windows) {
            if (!window.title && hasUnicodeTitle(window.id))
                requests.emplace_back(
                    &window, connection.requestProperty(windowOf(window.id), XCB_ATOM_WM_NAME));
        }
    }
    if (requests.empty())
        return;
    connection.finishBatch();
    for (const auto& [window, request] : requests)
        window->title = textOf(connection, request);
}

QHash<quint32, int> stackingPositions(const QList<quint32>& stacking)
{
    QHash<quint32, int> positions;
    for (const quint32 window : stacking)
        positions.insert(window, static_cast<int>(positions.size()));
    return positions;
}

} // namespace

X11FrameRequest::X11FrameRequest(const X11Connection& connection, xcb_window_t window)
    : m_geometry(xcb_get_geometry(connection.get(), window)),
      m_position(xcb_translate_coordinates(connection.get(), window, connection.root(), 0, 0)),
      m_decorations(connection.requestProperty(window, connection.atoms().netFrameExtents)),
      m_shadow(connection.requestProperty(window, connection.atoms().gtkFrameExtents))
{
}

std::optional<DecoratedWindow> X11FrameRequest::receive(const X11Connection& connection) const
{
    const auto geometry = connection.reply<xcb_get_geometry_reply>(m_geometry);
    const auto position = connection.reply<xcb_translate_coordinates_reply>(m_position);
    const auto decorations = propertyNumbers(connection.reply(m_decorations));
    const auto shadow = propertyNumbers(connection.reply(m_shadow));
    if (!geometry || !position)
        return std::nullopt;
    return DecoratedWindow{{position->dst_x, position->dst_y, geometry->width, geometry->height},
                           makeFrameExtents(decorations),
                           makeFrameExtents(shadow)};
}

void readWindows(const X11Connection& connection, bool tellsHidden,
                 QList<RunningApplication>& applications)
{
    std::vector<WindowRequest> requests;
    for (const RunningApplication& application : std::as_const(applications)) {
        for (const DesktopWindow& window : application.windows)
            requests.emplace_back(connection, window.id);
    }
    const auto stacking =
        connection.requestProperty(connection.root(), connection.atoms().netClientListStacking);
    connection.finishBatch();
    auto request = requests.begin();
    for (RunningApplication& application : applications) {
        QList<DesktopWindow> alive;
        for (DesktopWindow& window : application.windows) {
            if ((request++)->receive(connection, tellsHidden, window))
                alive.append(window);
        }
        application.windows = alive;
    }
    const auto positions = stackingPositions(propertyNumbers(connection.reply(stacking)));
    for (RunningApplication& application : applications) {
        for (DesktopWindow& window : application.windows)
            window.stackingPosition = positions.value(windowOf(window.id), -1);
    }
    readLostTitles(connection, applications);
}

} // namespace trovell
