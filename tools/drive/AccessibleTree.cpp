// SPDX-License-Identifier: MIT

#include "drive/AccessibleTree.h"

#include <QElapsedTimer>
#include <QThread>

#include <gio/gio.h>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

constexpr const char* accessibleInterface = "org.a11y.atspi.Accessible";
constexpr int timeoutMilliseconds = 2000;

// Bits of AT-SPI's state set (AtspiStateType).
constexpr int checkedBit = 4;
constexpr int enabledBit = 8;
constexpr int focusedBit = 12;
constexpr int selectedBit = 23;
constexpr int showingBit = 25;

void unref(GVariant* value)
{
    if (value)
        g_variant_unref(value);
}

GDBusConnection* connectTo(const char* address)
{
    const auto flags = GDBusConnectionFlags(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                            G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    return g_dbus_connection_new_for_address_sync(address, flags, nullptr, nullptr, nullptr);
}

/// AT-SPI has a bus of its own, whose address the session knows.
GDBusConnection* connectToAccessibilityBus(const QByteArray& sessionAddress)
{
    GDBusConnection* session = connectTo(sessionAddress.constData());
    if (!session)
        return nullptr;
    GVariant* answer = g_dbus_connection_call_sync(
        session, "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", nullptr,
        G_VARIANT_TYPE("(s)"), G_DBUS_CALL_FLAGS_NONE, 10'000, nullptr, nullptr);
    g_object_unref(session);
    if (!answer)
        return nullptr;
    const char* address = nullptr;
    g_variant_get(answer, "(&s)", &address);
    GDBusConnection* connection = connectTo(address);
    g_variant_unref(answer);
    return connection;
}

/// Rows tell more than their name after a comma.
bool isNamed(const AccessibleNode& node, const QString& name)
{
    return name.isEmpty() || node.name == name || node.name.startsWith(name + u", "_s);
}

AccessibleNode registry()
{
    AccessibleNode node;
    node.busName = "org.a11y.atspi.Registry";
    node.path = "/org/a11y/atspi/accessible/root";
    return node;
}

} // namespace

AccessibleTree::AccessibleTree(const QByteArray& sessionAddress)
    : m_connection(connectToAccessibilityBus(sessionAddress))
{
}

AccessibleTree::~AccessibleTree()
{
    if (m_connection)
        g_object_unref(m_connection);
}

AccessibleTree::Value AccessibleTree::call(const AccessibleNode& node, const char* interface,
                                           const char* method, GVariant* arguments) const
{
    return Value(m_connection ? g_dbus_connection_call_sync(
                                    m_connection, node.busName.constData(), node.path.constData(),
                                    interface, method, arguments, nullptr, G_DBUS_CALL_FLAGS_NONE,
                                    timeoutMilliseconds, nullptr, nullptr)
                              : nullptr,
                 &unref);
}

QString AccessibleTree::property(const AccessibleNode& node, const char* interface,
                                 const char* name) const
{
    const Value answer = call(node, "org.freedesktop.DBus.Properties", "Get",
                              g_variant_new("(ss)", interface, name));
    if (!answer)
        return {};
    GVariant* value = nullptr;
    g_variant_get(answer.get(), "(v)", &value);
    const QString text = g_variant_is_of_type(value, G_VARIANT_TYPE_STRING)
                             ? QString::fromUtf8(g_variant_get_string(value, nullptr))
                             : QString();
    g_variant_unref(value);
    return text;
}

QList<AccessibleNode> AccessibleTree::children(const AccessibleNode& node) const
{
    QList<AccessibleNode> found;
    const Value answer = call(node, accessibleInterface, "GetChildren", nullptr);
    if (!answer)
        return found;
    GVariantIter* references = nullptr;
    g_variant_get(answer.get(), "(a(so))", &references);
    const char* busName = nullptr;
    const char* path = nullptr;
    while (g_variant_iter_next(references, "(&s&o)", &busName, &path)) {
        AccessibleNode child;
        child.busName = busName;
        child.path = path;
        child.depth = node.depth + 1;
        found.append(child);
    }
    g_variant_iter_free(references);
    return found;
}

void AccessibleTree::read(AccessibleNode& node) const
{
    node.name = property(node, accessibleInterface, "Name");
    node.description = property(node, accessibleInterface, "Description");
    if (const Value role = call(node, accessibleInterface, "GetRoleName", nullptr)) {
        const char* text = nullptr;
        g_variant_get(role.get(), "(&s)", &text);
        node.role = QString::fromUtf8(text);
    }
    if (const Value states = call(node, accessibleInterface, "GetState", nullptr)) {
        GVariant* words = g_variant_get_child_value(states.get(), 0);
        gsize count = 0;
        const auto* word = static_cast<const guint32*>(g_variant_get_fixed_array(words, &count, 4));
        const guint32 bits = count > 0 ? word[0] : 0;
        const auto has = [bits](int bit) { return (bits >> bit & 1) != 0; };
        node.isShowing = has(showingBit);
        node.isEnabled = has(enabledBit);
        node.isChecked = has(checkedBit);
        node.isFocused = has(focusedBit);
        node.isSelected = has(selectedBit);
        g_variant_unref(words);
    }
}

void AccessibleTree::collect(const AccessibleNode& node, QList<AccessibleNode>& found) const
{
    QList<AccessibleNode> below = children(node);
    for (AccessibleNode& child : below) {
        read(child);
        if (!child.isShowing)
            continue;
        found.append(child);
        collect(child, found);
    }
}

QList<AccessibleNode> AccessibleTree::shown(const QString& application) const
{
    QList<AccessibleNode> found;
    QList<AccessibleNode> applications = children(registry());
    for (AccessibleNode& candidate : applications) {
        if (property(candidate, accessibleInterface, "Name") == application)
            collect(candidate, found);
    }
    return found;
}

std::optional<AccessibleNode> AccessibleTree::find(const QString& application, const QString& role,
                                                   const QString& name) const
{
    const QList<AccessibleNode> nodes = shown(application);
    for (const AccessibleNode& node : nodes) {
        if ((role.isEmpty() || node.role == role) && isNamed(node, name))
            return node;
    }
    return std::nullopt;
}

std::optional<AccessibleNode> AccessibleTree::waitFor(const QString& application,
                                                      const QString& role, const QString& name,
                                                      std::chrono::milliseconds timeout) const
{
    QElapsedTimer clock;
    clock.start();
    std::optional<AccessibleNode> node;
    while (!(node = find(application, role, name)) && clock.elapsed() < timeout.count())
        QThread::msleep(50);
    return node;
}

QRect AccessibleTree::extents(const AccessibleNode& node) const
{
    constexpr guint32 ofTheScreen = 0;
    const Value answer =
        call(node, "org.a11y.atspi.Component", "GetExtents", g_variant_new("(u)", ofTheScreen));
    if (!answer)
        return {};
    int x = 0, y = 0, width = 0, height = 0;
    g_variant_get(answer.get(), "((iiii))", &x, &y, &width, &height);
    return {x, y, width, height};
}

} // namespace trovell
