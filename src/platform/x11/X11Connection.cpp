// SPDX-License-Identifier: MIT

#include "platform/x11/X11Connection.h"

#include <xcb/randr.h>
#include <xcb/res.h>

#include <algorithm>
#include <cstring>
#include <limits>

namespace trovell {

namespace {

/// Sending a request of an extension that the server does not have would end the connection.
bool hasExtension(xcb_connection_t* connection, xcb_extension_t* extension)
{
    const auto* data = xcb_get_extension_data(connection, extension);
    return data && data->present;
}

bool isAtLeast(quint32 major, quint32 minor, quint32 wantedMajor, quint32 wantedMinor)
{
    return major > wantedMajor || (major == wantedMajor && minor >= wantedMinor);
}

bool findMonitors(const X11Connection& connection)
{
    if (!hasExtension(connection.get(), &xcb_randr_id))
        return false;
    const auto version = connection.reply<xcb_randr_query_version_reply>(
        xcb_randr_query_version(connection.get(), 1, 5));
    return version && isAtLeast(version->major_version, version->minor_version, 1, 5);
}

bool findClientIds(const X11Connection& connection)
{
    if (!hasExtension(connection.get(), &xcb_res_id))
        return false;
    const auto version = connection.reply<xcb_res_query_version_reply>(
        xcb_res_query_version(connection.get(), 1, 2));
    return version && isAtLeast(version->server_major, version->server_minor, 1, 2);
}

} // namespace

X11Connection::X11Connection(const QByteArray& displayName) : m_server{displayName, {}}
{
    connect();
    xcb_prefetch_extension_data(m_connection, &xcb_randr_id);
    xcb_prefetch_extension_data(m_connection, &xcb_res_id);
    m_server.atoms = internAtoms(m_connection, m_screenNumber);
    m_server.hasMonitors = findMonitors(*this);
    m_server.hasClientIds = findClientIds(*this);
}

X11Connection::X11Connection(const X11Server& server) : m_server(server)
{
    connect();
}

X11Connection::~X11Connection()
{
    xcb_disconnect(m_connection);
}

void X11Connection::connect()
{
    const QByteArray& name = m_server.displayName;
    m_connection = xcb_connect(name.isEmpty() ? nullptr : name.constData(), &m_screenNumber);
    if (!isAlive())
        return;
    const xcb_setup_t* setup = xcb_get_setup(m_connection);
    m_idMask = setup->resource_id_mask;
    auto screens = xcb_setup_roots_iterator(setup);
    for (int skipped = 0; skipped < m_screenNumber && screens.rem > 1; ++skipped)
        xcb_screen_next(&screens);
    m_root = screens.data->root;
}

bool X11Connection::isAlive() const
{
    return xcb_connection_has_error(m_connection) == 0;
}

xcb_get_property_cookie_t X11Connection::requestProperty(xcb_window_t window,
                                                         xcb_atom_t property) const
{
    // Lists of windows and of features are the desktop's own; what programs tell is short.
    constexpr quint32 longestList = 64 * 1024;
    constexpr quint32 longestText = 4 * 1024 / 4;
    return xcb_get_property(m_connection, 0, window, property, XCB_GET_PROPERTY_TYPE_ANY, 0,
                            window == m_root ? longestList : longestText);
}

xcb_atom_t X11Connection::atom(const QByteArray& name) const
{
    const auto request =
        xcb_intern_atom(m_connection, 0, static_cast<quint16>(name.size()), name.constData());
    finishBatch();
    const auto answer = reply<xcb_intern_atom_reply>(request);
    return answer ? answer->atom : xcb_atom_t(XCB_ATOM_NONE);
}

void X11Connection::finishBatch() const
{
    xcb_flush(m_connection);
    ++m_roundTripCount;
}

void X11Connection::dropEvents() const
{
    while (X11Reply<xcb_generic_event_t>(xcb_poll_for_queued_event(m_connection))) {
    }
}

void X11Connection::sendToRoot(xcb_window_t window, xcb_atom_t type,
                               const std::array<quint32, 5>& data) const
{
    xcb_client_message_event_t event = {};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = type;
    std::copy(data.begin(), data.end(), event.data.data32);
    xcb_send_event(m_connection, 0, m_root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&event));
}

QList<quint32> propertyNumbers(const X11PropertyReply& reply)
{
    if (!reply || reply->format != 32)
        return {};
    const auto* first = static_cast<const quint32*>(xcb_get_property_value(reply.get()));
    return {first, first + reply->value_len};
}

QByteArray propertyBytes(const X11PropertyReply& reply)
{
    if (!reply || reply->format != 8)
        return {};
    return {static_cast<const char*>(xcb_get_property_value(reply.get())),
            static_cast<qsizetype>(reply->value_len)};
}

QString propertyText(const X11PropertyReply& reply, const X11Atoms& atoms)
{
    QByteArray bytes = propertyBytes(reply);
    while (bytes.endsWith('\0'))
        bytes.chop(1);
    if (bytes.isEmpty())
        return {};
    if (reply->type == atoms.utf8String)
        return QString::fromUtf8(bytes);
    constexpr char escape = '\x1b';
    if (reply->type == atoms.compoundText && bytes.contains(escape))
        return {};
    return QString::fromLatin1(bytes);
}

} // namespace trovell
