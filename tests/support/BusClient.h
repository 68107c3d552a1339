// SPDX-License-Identifier: MIT
//
// A program of its own on the session bus, though in this process: it owns a name. Main thread of a
// test.
#pragma once

#include "platform/freedesktop/GObjectPointer.h"

#include <gio/gio.h>

#include <QByteArray>

namespace trovell::test {

class BusClient {
public:
    /// The session bus of DBUS_SESSION_BUS_ADDRESS; stops the test program when it refuses.
    explicit BusClient(const char* name)
        : m_connection(g_dbus_connection_new_for_address_sync(
              qgetenv("DBUS_SESSION_BUS_ADDRESS").constData(),
              static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
              nullptr, nullptr, nullptr))
    {
        const GVariantPointer reply(g_dbus_connection_call_sync(
            m_connection.get(), "org.freedesktop.DBus", "/org/freedesktop/DBus",
            "org.freedesktop.DBus", "RequestName", g_variant_new("(su)", name, 0U), nullptr,
            G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr));
        if (!reply)
            qFatal("cannot own %s", name);
    }
    ~BusClient() { g_dbus_connection_close_sync(m_connection.get(), nullptr, nullptr); }
    Q_DISABLE_COPY_MOVE(BusClient)

    [[nodiscard]] GDBusConnection* connection() const { return m_connection.get(); }

private:
    GObjectPointer<GDBusConnection> m_connection;
};

} // namespace trovell::test
