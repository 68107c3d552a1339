// SPDX-License-Identifier: MIT

#include "platform/x11/X11Monitors.h"

#include "platform/x11/MonitorName.h"

#include <algorithm>

namespace trovell {

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

X11MonitorNameRequest::X11MonitorNameRequest(const X11Connection& connection,
                                             const X11Monitor& monitor)
    : m_connector(xcb_get_atom_name(connection.get(), monitor.name))
{
    constexpr quint32 blockWords = 128 / 4;
    for (const xcb_randr_output_t output : monitor.outputs)
        m_identifications.append(
            xcb_randr_get_output_property(connection.get(), output, connection.atoms().edid,
                                          XCB_GET_PROPERTY_TYPE_ANY, 0, blockWords, 0, 0));
}

QString X11MonitorNameRequest::receive(const X11Connection& connection) const
{
    QString identified;
    for (const auto& cookie : m_identifications) {
        const auto edid = connection.reply<xcb_randr_get_output_property_reply>(cookie);
        if (!edid || edid->format != 8)
            continue;
        const auto* bytes = xcb_randr_get_output_property_data(edid.get());
        const QByteArray block(reinterpret_cast<const char*>(bytes),
                               static_cast<qsizetype>(edid->num_items));
        if (identified.isEmpty())
            identified = monitorName(block, manufacturerRegistry());
    }
    const auto connector = connection.reply<xcb_get_atom_name_reply>(m_connector);
    if (!identified.isEmpty() || !connector)
        return identified;
    return QString::fromUtf8(xcb_get_atom_name_name(connector.get()),
                             xcb_get_atom_name_name_length(connector.get()));
}

std::optional<qsizetype> mainMonitor(const QList<X11Monitor>& monitors)
{
    if (monitors.isEmpty())
        return std::nullopt;
    const auto primary = std::find_if(monitors.begin(), monitors.end(),
                                      [](const X11Monitor& each) { return each.isPrimary; });
    return primary == monitors.end() ? 0 : primary - monitors.begin();
}

} // namespace trovell
