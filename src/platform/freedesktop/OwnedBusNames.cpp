// SPDX-License-Identifier: MIT

#include "platform/freedesktop/OwnedBusNames.h"

#include "platform/freedesktop/DesktopFileIndex.h"

#include <QSet>

namespace trovell {

namespace {

bool isBusName(const QString& identifier)
{
    const QByteArray name = identifier.toUtf8();
    return g_dbus_is_name(name.constData()) && !g_dbus_is_unique_name(name.constData());
}

QSet<QString> stringSet(GVariant* arrayInTuple)
{
    QSet<QString> strings;
    GVariantIter* items = nullptr;
    const char* item = nullptr;
    g_variant_get(arrayInTuple, "(as)", &items);
    while (g_variant_iter_next(items, "&s", &item))
        strings.insert(QString::fromUtf8(item));
    g_variant_iter_free(items);
    return strings;
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

} // namespace

OwnedBusNames::OwnedBusNames(DesktopFileIndex& installed)
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
    (*taken)->reset(g_bus_get_finish(result, nullptr));
    // By default GIO ends the process when the bus goes away.
    if (**taken)
        g_dbus_connection_set_exit_on_close((*taken)->get(), FALSE);
}

GVariantPointer OwnedBusNames::ask(const char* method, const char* replyType,
                                   const QString& name) const
{
    if (!isConnected())
        return {};
    constexpr int timeoutMilliseconds = 50;
    GVariant* const arguments =
        name.isNull() ? nullptr : g_variant_new("(s)", name.toUtf8().constData());
    return GVariantPointer(g_dbus_connection_call_sync(
        m_connection->get(), "org.freedesktop.DBus", "/org/freedesktop/DBus",
        "org.freedesktop.DBus", method, arguments, G_VARIANT_TYPE(replyType),
        G_DBUS_CALL_FLAGS_NO_AUTO_START, timeoutMilliseconds, nullptr, nullptr));
}

qint32 OwnedBusNames::processIdentifier(const QString& name) const
{
    guint32 identifier = 0;
    if (const auto reply = ask("GetConnectionUnixProcessID", "(u)", name))
        g_variant_get(reply.get(), "(u)", &identifier);
    return static_cast<qint32>(identifier);
}

std::optional<RunningApplication> OwnedBusNames::find(const QString& bundleIdentifier) const
{
    gboolean isOwned = FALSE;
    if (!isBusName(bundleIdentifier))
        return {};
    if (const auto reply = ask("NameHasOwner", "(b)", bundleIdentifier))
        g_variant_get(reply.get(), "(b)", &isOwned);
    const auto identity = isOwned ? m_installed.application(bundleIdentifier) : std::nullopt;
    if (!identity)
        return {};
    return runningApplication(*identity, processIdentifier(bundleIdentifier));
}

QList<RunningApplication> OwnedBusNames::list() const
{
    const auto reply = ask("ListNames", "(as)");
    const QSet<QString> owned = reply ? stringSet(reply.get()) : QSet<QString>();
    QList<RunningApplication> running;
    const QList<ApplicationIdentity> installed = m_installed.visibleApplications();
    for (const ApplicationIdentity& identity : installed) {
        const QString& identifier = identity.bundleIdentifier;
        if (isBusName(identifier) && owned.contains(identifier))
            running.append(runningApplication(identity, processIdentifier(identifier)));
    }
    return running;
}

} // namespace trovell
