// SPDX-License-Identifier: MIT

#include "platform/freedesktop/OwnedBusNames.h"

#include "platform/freedesktop/DesktopFileIndex.h"
#include "platform/freedesktop/GObjectPointer.h"

#include <algorithm>

namespace trovell {

namespace {

bool isBusName(const QString& identifier)
{
    const QByteArray name = identifier.toUtf8();
    return g_dbus_is_name(name.constData()) && !g_dbus_is_unique_name(name.constData());
}

GVariantPointer ask(GDBusConnection* bus, const char* method, const char* replyType,
                    const QString& name = {})
{
    constexpr int timeoutMilliseconds = 50;
    GVariant* const arguments =
        name.isNull() ? nullptr : g_variant_new("(s)", name.toUtf8().constData());
    return GVariantPointer(g_dbus_connection_call_sync(
        bus, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", method,
        arguments, G_VARIANT_TYPE(replyType), G_DBUS_CALL_FLAGS_NO_AUTO_START, timeoutMilliseconds,
        nullptr, nullptr));
}

QSet<QString> ownedNames(GDBusConnection* bus)
{
    QSet<QString> names;
    const auto reply = ask(bus, "ListNames", "(as)");
    if (!reply)
        return names;
    GVariantIter* items = nullptr;
    const char* item = nullptr;
    g_variant_get(reply.get(), "(as)", &items);
    while (g_variant_iter_next(items, "&s", &item))
        names.insert(QString::fromUtf8(item));
    g_variant_iter_free(items);
    return names;
}

qint32 processOf(GDBusConnection* bus, const QString& name)
{
    guint32 identifier = 0;
    if (const auto reply = ask(bus, "GetConnectionUnixProcessID", "(u)", name))
        g_variant_get(reply.get(), "(u)", &identifier);
    return static_cast<qint32>(identifier);
}

RunningApplication runningApplication(const ApplicationIdentity& identity, qint32 processIdentifier)
{
    RunningApplication application;
    application.processIdentifier = processIdentifier;
    application.isRegular = true;
    application.bundleIdentifier = identity.bundleIdentifier;
    application.localizedName = identity.name;
    application.bundleURL = identity.url.toString(QUrl::FullyEncoded);
    return application;
}

QList<ApplicationIdentity> candidates(const DesktopFileIndex& installed,
                                      const std::optional<QSet<QString>>& identifiers)
{
    if (!identifiers)
        return installed.visibleApplications();
    QList<ApplicationIdentity> named;
    for (const QString& identifier : *identifiers) {
        if (const auto identity = installed.application(identifier))
            named.append(*identity);
    }
    std::ranges::sort(named, {}, &ApplicationIdentity::bundleIdentifier);
    return named;
}

} // namespace

OwnedBusNames::OwnedBusNames(const DesktopFileIndex& installed)
    : m_installed(installed), m_connection(std::make_shared<Connection>())
{
    // Not cancelled by the destructor: the whole process shares one connection, and GIO would
    // refuse it to everybody else who waits for it, too.
    g_bus_get(G_BUS_TYPE_SESSION, nullptr, takeConnection,
              std::make_unique<std::shared_ptr<Connection>>(m_connection).release());
}

void OwnedBusNames::takeConnection(GObject*, GAsyncResult* result, gpointer connection)
{
    const std::unique_ptr<std::shared_ptr<Connection>> taken(
        static_cast<std::shared_ptr<Connection>*>(connection));
    GDBusConnection* const bus = g_bus_get_finish(result, nullptr);
    // By default GIO ends the process when the bus goes away.
    if (bus)
        g_dbus_connection_set_exit_on_close(bus, FALSE);
    (*taken)->bus = bus;
}

QList<RunningApplication>
OwnedBusNames::running(const std::optional<QSet<QString>>& identifiers) const
{
    QList<RunningApplication> running;
    GDBusConnection* const bus = m_connection->bus;
    if (!bus)
        return running;
    const QSet<QString> owned = ownedNames(bus);
    if (owned.isEmpty())
        return running;
    const QList<ApplicationIdentity> known = candidates(m_installed, identifiers);
    for (const ApplicationIdentity& identity : known) {
        const QString& identifier = identity.bundleIdentifier;
        if (isBusName(identifier) && owned.contains(identifier))
            running.append(runningApplication(identity, processOf(bus, identifier)));
    }
    return running;
}

} // namespace trovell
