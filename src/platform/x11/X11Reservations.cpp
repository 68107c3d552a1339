// SPDX-License-Identifier: MIT

#include "platform/x11/X11Reservations.h"

#include "platform/x11/X11WindowKind.h"

#include <algorithm>

namespace trovell {

namespace {

using Attributes = X11Reply<xcb_get_window_attributes_reply_t>;

bool isShown(const Attributes& attributes)
{
    return attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE;
}

} // namespace

X11DetailRequest::X11DetailRequest(const X11Connection& connection,
                                   const QList<X11Monitor>& monitors, const QList<quint32>& windows)
    : m_connection(connection)
{
    const X11Atoms& atoms = connection.atoms();
    for (const X11Monitor& monitor : monitors)
        m_names.emplace_back(connection, monitor);
    for (const quint32 window : windows)
        m_reservations.push_back({window, connection.requestProperty(window, atoms.netWmWindowType),
                                  connection.requestProperty(window, atoms.netWmStrutPartial),
                                  connection.requestProperty(window, atoms.netWmStrut),
                                  xcb_get_window_attributes(connection.get(), window)});
}

DisplayDetails X11DetailRequest::receive(QSize screen) const
{
    DisplayDetails details;
    for (const X11MonitorNameRequest& name : m_names)
        details.monitorNames.append(name.receive(m_connection));
    for (const Reservation& request : m_reservations) {
        const auto types = propertyNumbers(m_connection.reply(request.types));
        const auto partial = propertyNumbers(m_connection.reply(request.partial));
        const auto whole = propertyNumbers(m_connection.reply(request.whole));
        const Attributes attributes =
            m_connection.reply<xcb_get_window_attributes_reply>(request.attributes);
        const QList<Strut> struts = makeStruts(partial, whole, screen);
        // Windows that are managed may be out of sight for other reasons and keep their space.
        if (attributes && attributes->override_redirect && !isShown(attributes))
            details.hidden.append(request.window);
        else
            details.struts.append(struts);
        if (!struts.isEmpty() || !windowKind(types, false, m_connection.atoms()))
            details.panels.append(request.window);
    }
    return details;
}

X11ShownRequest::X11ShownRequest(const X11Connection& connection, const QList<quint32>& windows)
    : m_connection(connection)
{
    for (const quint32 window : windows)
        m_cookies.append(xcb_get_window_attributes(connection.get(), window));
}

bool X11ShownRequest::receive() const
{
    // All of them: an answer that nobody takes stays in memory.
    const auto shown = std::ranges::count_if(m_cookies, [this](const auto cookie) {
        return isShown(m_connection.reply<xcb_get_window_attributes_reply>(cookie));
    });
    return shown > 0;
}

} // namespace trovell
