// SPDX-License-Identifier: MIT

#include "platform/x11/X11WindowReader.h"

#include "platform/x11/X11Monitors.h"
#include "platform/x11/X11WindowHandle.h"

#include <vector>

namespace trovell {

namespace {

std::optional<QString> textOf(const X11Connection& connection, xcb_get_property_cookie_t request)
{
    const QString text = propertyText(connection.reply(request), connection.atoms());
    return text.isEmpty() ? std::nullopt : std::optional(text);
}

/// All that is asked about one window.
class AttributeRequest {
public:
    AttributeRequest(const X11Connection& connection, WindowHandle handle)
        : m_handle(handle), m_frame(connection, windowOfHandle(handle)),
          m_netState(request(connection, connection.atoms().netWmState)),
          m_state(request(connection, connection.atoms().wmState)),
          m_netName(request(connection, connection.atoms().netWmName))
    {
        if (!hasUnicodeTitle(handle))
            m_name = request(connection, XCB_ATOM_WM_NAME);
    }

    std::optional<WindowAttributes> receive(const X11Connection& connection, QPoint origin) const
    {
        const auto window = m_frame.receive(connection);
        WindowAttributes attributes;
        attributes.handle = m_handle;
        attributes.isMinimized = receiveMinimized(connection);
        attributes.title = receiveTitle(connection);
        if (!window)
            return std::nullopt;
        attributes.role = roleOfWindows();
        attributes.subrole = subroleOf(kindOfHandle(m_handle));
        const QRectF frame = frameFromPixels(visibleFrame(*window)).translated(-origin);
        attributes.position = frame.topLeft();
        attributes.size = frame.size();
        return attributes;
    }

private:
    xcb_get_property_cookie_t request(const X11Connection& connection, xcb_atom_t property) const
    {
        return connection.requestProperty(windowOfHandle(m_handle), property);
    }

    bool receiveMinimized(const X11Connection& connection) const
    {
        constexpr quint32 iconicState = 3; // ICCCM 4.1.3.1
        const auto states = propertyNumbers(connection.reply(m_netState));
        const auto state = propertyNumbers(connection.reply(m_state));
        return states.contains(connection.atoms().netWmStateHidden) ||
               state.value(0) == iconicState;
    }

    std::optional<QString> receiveTitle(const X11Connection& connection) const
    {
        const auto title = textOf(connection, m_netName);
        const auto oldTitle = m_name ? textOf(connection, *m_name) : std::nullopt;
        return title ? title : oldTitle;
    }

    WindowHandle m_handle;
    X11FrameRequest m_frame;
    xcb_get_property_cookie_t m_netState;
    xcb_get_property_cookie_t m_state;
    xcb_get_property_cookie_t m_netName;
    std::optional<xcb_get_property_cookie_t> m_name;
};

/// For windows that had a modern title when they were first seen, and have none any more.
void readLostTitles(const X11Connection& connection, QList<QList<WindowAttributes>>& applications)
{
    std::vector<std::pair<WindowAttributes*, xcb_get_property_cookie_t>> requests;
    for (QList<WindowAttributes>& windows : applications) {
        for (WindowAttributes& window : windows) {
            if (!window.title && hasUnicodeTitle(window.handle))
                requests.emplace_back(
                    &window,
                    connection.requestProperty(windowOfHandle(window.handle), XCB_ATOM_WM_NAME));
        }
    }
    if (requests.empty())
        return;
    connection.finishBatch();
    for (const auto& [window, request] : requests)
        window->title = textOf(connection, request);
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

QList<QList<WindowAttributes>> readWindowAttributes(const X11Connection& connection,
                                                    const QList<QList<WindowHandle>>& applications)
{
    const X11MonitorRequest monitors(connection);
    std::vector<std::vector<AttributeRequest>> requests;
    for (const QList<WindowHandle>& windows : applications) {
        auto& ofApplication = requests.emplace_back();
        for (const WindowHandle handle : windows)
            ofApplication.emplace_back(connection, handle);
    }
    connection.finishBatch();
    const QPoint origin = accessibilityOrigin(monitors.receive());
    QList<QList<WindowAttributes>> result;
    for (const auto& ofApplication : requests) {
        QList<WindowAttributes> windows;
        for (const AttributeRequest& request : ofApplication) {
            if (const auto attributes = request.receive(connection, origin))
                windows.append(*attributes);
        }
        result.append(windows);
    }
    readLostTitles(connection, result);
    return result;
}

} // namespace trovell
