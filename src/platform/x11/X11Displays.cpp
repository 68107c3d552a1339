#include "platform/x11/X11Displays.h"

#include "platform/x11/MonitorName.h"
#include "platform/x11/X11WorkArea.h"

#include <algorithm>

namespace trovell {

namespace {

/// What surrounds the monitors: read together with them.
struct DesktopRequest {
    explicit DesktopRequest(const X11Connection& connection)
        : screen(xcb_get_geometry(connection.get(), connection.root())),
          windows(connection.requestProperty(connection.root(), connection.atoms().netClientList)),
          workAreas(connection.requestProperty(connection.root(), connection.atoms().netWorkarea)),
          desktop(
              connection.requestProperty(connection.root(), connection.atoms().netCurrentDesktop))
    {
    }

    xcb_get_geometry_cookie_t screen;
    xcb_get_property_cookie_t windows;
    xcb_get_property_cookie_t workAreas;
    xcb_get_property_cookie_t desktop;
};

struct DesktopReading {
    QSize screen;
    QList<quint32> windows;
    /// Of the current virtual desktop; empty when the window manager announces none.
    std::optional<PixelRectangle> workArea;
};

struct StrutRequest {
    xcb_get_property_cookie_t partial;
    xcb_get_property_cookie_t whole;
};

struct MonitorNameRequest {
    xcb_get_atom_name_cookie_t name;
    QList<xcb_randr_get_output_property_cookie_t> identifications;
};

std::optional<PixelRectangle> workAreaOf(const QList<quint32>& areas, quint32 desktop)
{
    const qsizetype first = 4 * static_cast<qsizetype>(desktop);
    if (areas.size() < first + 4)
        return std::nullopt;
    const auto number = [&](qsizetype index) { return static_cast<int>(areas.at(first + index)); };
    return PixelRectangle{number(0), number(1), number(2), number(3)};
}

DesktopReading receiveDesktop(const X11Connection& connection, const DesktopRequest& request)
{
    DesktopReading reading;
    if (const auto screen = connection.reply<xcb_get_geometry_reply>(request.screen))
        reading.screen = QSize(screen->width, screen->height);
    reading.windows = propertyNumbers(connection.reply(request.windows));
    const QList<quint32> areas = propertyNumbers(connection.reply(request.workAreas));
    const QList<quint32> desktop = propertyNumbers(connection.reply(request.desktop));
    reading.workArea = workAreaOf(areas, desktop.value(0));
    return reading;
}

StrutRequest requestStruts(const X11Connection& connection, xcb_window_t window)
{
    return {connection.requestProperty(window, connection.atoms().netWmStrutPartial),
            connection.requestProperty(window, connection.atoms().netWmStrut)};
}

MonitorNameRequest requestName(const X11Connection& connection, const X11Monitor& monitor)
{
    constexpr quint32 blockWords = 128 / 4;
    MonitorNameRequest request = {xcb_get_atom_name(connection.get(), monitor.name), {}};
    for (const xcb_randr_output_t output : monitor.outputs)
        request.identifications.append(
            xcb_randr_get_output_property(connection.get(), output, connection.atoms().edid,
                                          XCB_GET_PROPERTY_TYPE_ANY, 0, blockWords, 0, 0));
    return request;
}

QString receiveName(const X11Connection& connection, const MonitorNameRequest& request)
{
    QString identified;
    for (const auto& cookie : request.identifications) {
        const auto edid = connection.reply<xcb_randr_get_output_property_reply>(cookie);
        if (!edid || edid->format != 8)
            continue;
        const auto* bytes = xcb_randr_get_output_property_data(edid.get());
        const QByteArray block(reinterpret_cast<const char*>(bytes),
                               static_cast<qsizetype>(edid->num_items));
        if (identified.isEmpty())
            identified = monitorName(block);
    }
    const auto name = connection.reply<xcb_get_atom_name_reply>(request.name);
    if (!identified.isEmpty() || !name)
        return identified;
    return QString::fromUtf8(xcb_get_atom_name_name(name.get()),
                             xcb_get_atom_name_name_length(name.get()));
}

/// The one conversion from root pixels to screen coordinates.
QRectF screenRectangle(const PixelRectangle& area, const PixelRectangle& main)
{
    const int bottom = main.y + main.height;
    return QRectF(area.x - main.x, bottom - (area.y + area.height), area.width, area.height);
}

PixelRectangle freeArea(const PixelRectangle& area, const QList<Strut>& struts,
                        const DesktopReading& desktop, bool isOnlyMonitor)
{
    const PixelRectangle free = withoutStruts(area, struts, desktop.screen);
    // The work area is one box for all displays together, so it tells nothing about one of
    // several. With one display it knows panels that are in no window list.
    return isOnlyMonitor && desktop.workArea ? intersectedOrWhole(free, *desktop.workArea) : free;
}

} // namespace

X11MonitorRequest::X11MonitorRequest(const X11Connection& connection) : m_connection(connection)
{
    if (connection.server().hasMonitors)
        m_monitors = xcb_randr_get_monitors(connection.get(), connection.root(), 1);
    else
        m_screen = xcb_get_geometry(connection.get(), connection.root());
}

QList<X11Monitor> X11MonitorRequest::receive() const
{
    QList<X11Monitor> monitors;
    if (!m_connection.server().hasMonitors) {
        if (const auto screen = m_connection.reply<xcb_get_geometry_reply>(m_screen))
            monitors.append({0, true, {0, 0, screen->width, screen->height}, {}});
        return monitors;
    }
    const auto reply = m_connection.reply<xcb_randr_get_monitors_reply>(m_monitors);
    if (!reply)
        return monitors;
    auto each = xcb_randr_get_monitors_monitors_iterator(reply.get());
    for (; each.rem > 0; xcb_randr_monitor_info_next(&each)) {
        const xcb_randr_monitor_info_t& info = *each.data;
        const auto* outputs = xcb_randr_monitor_info_outputs(&info);
        if (info.width > 0 && info.height > 0)
            monitors.append({info.name,
                             info.primary != 0,
                             {info.x, info.y, info.width, info.height},
                             QList<xcb_randr_output_t>(outputs, outputs + info.nOutput)});
    }
    return monitors;
}

std::optional<qsizetype> mainMonitor(const QList<X11Monitor>& monitors)
{
    if (monitors.isEmpty())
        return std::nullopt;
    const auto primary = std::find_if(monitors.begin(), monitors.end(),
                                      [](const X11Monitor& each) { return each.isPrimary; });
    return primary == monitors.end() ? 0 : primary - monitors.begin();
}

QPoint accessibilityOrigin(const QList<X11Monitor>& monitors)
{
    const auto main = mainMonitor(monitors);
    if (!main)
        return {};
    const PixelRectangle& area = monitors.at(*main).area;
    return {area.x, area.y};
}

QList<DisplaySnapshot> readDisplays(const X11Connection& connection)
{
    const X11MonitorRequest monitorRequest(connection);
    const DesktopRequest desktopRequest(connection);
    connection.finishBatch();
    const QList<X11Monitor> monitors = monitorRequest.receive();
    const DesktopReading desktop = receiveDesktop(connection, desktopRequest);

    QList<MonitorNameRequest> nameRequests;
    for (const X11Monitor& monitor : monitors)
        nameRequests.append(requestName(connection, monitor));
    QList<StrutRequest> strutRequests;
    for (const quint32 window : desktop.windows)
        strutRequests.append(requestStruts(connection, window));
    connection.finishBatch();
    QList<QString> names;
    for (const MonitorNameRequest& request : std::as_const(nameRequests))
        names.append(receiveName(connection, request));
    QList<Strut> struts;
    for (const StrutRequest& request : std::as_const(strutRequests)) {
        const auto partial = propertyNumbers(connection.reply(request.partial));
        const auto whole = propertyNumbers(connection.reply(request.whole));
        struts.append(makeStruts(partial, whole, desktop.screen));
    }

    const auto main = mainMonitor(monitors);
    QList<Screen> screens;
    for (qsizetype index = 0; index < monitors.size(); ++index) {
        const PixelRectangle& area = monitors.at(index).area;
        const PixelRectangle& mainArea = monitors.at(*main).area;
        const PixelRectangle free = freeArea(area, struts, desktop, monitors.size() == 1);
        screens.append({screenRectangle(area, mainArea), screenRectangle(free, mainArea), 1.0,
                        names.at(index)});
    }
    return makeDisplaySnapshots(screens, main);
}

} // namespace trovell
