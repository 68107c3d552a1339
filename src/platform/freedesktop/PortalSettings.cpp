// SPDX-License-Identifier: MIT

#include "platform/freedesktop/PortalSettings.h"

#include "platform/freedesktop/GObjectPointer.h"

#include <optional>
#include <utility>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

constexpr const char* portalName = "org.freedesktop.portal.Desktop";
constexpr const char* portalPath = "/org/freedesktop/portal/desktop";
constexpr const char* portalInterface = "org.freedesktop.portal.Settings";

constexpr guint32 prefersDark = 1;
constexpr guint32 prefersReducedMotion = 1;

/// Portals have wrapped values in more variants than the interface says.
GVariantPointer unwrapped(GVariant* value)
{
    GVariantPointer inner(g_variant_ref(value));
    while (g_variant_is_of_type(inner.get(), G_VARIANT_TYPE_VARIANT))
        inner.reset(g_variant_get_variant(inner.get()));
    return inner;
}

std::optional<double> number(GVariant* value)
{
    if (g_variant_is_of_type(value, G_VARIANT_TYPE_DOUBLE))
        return g_variant_get_double(value);
    if (g_variant_is_of_type(value, G_VARIANT_TYPE_UINT32))
        return g_variant_get_uint32(value);
    if (g_variant_is_of_type(value, G_VARIANT_TYPE_BOOLEAN))
        return g_variant_get_boolean(value) ? 1 : 0;
    if (g_variant_is_of_type(value, G_VARIANT_TYPE_STRING)) {
        bool isNumber = false;
        const double parsed = QByteArray(g_variant_get_string(value, nullptr)).toDouble(&isNumber);
        return isNumber ? std::optional(parsed) : std::nullopt;
    }
    return {};
}

template <class Value> bool assign(Value& member, const Value& value)
{
    return std::exchange(member, value) != value;
}

} // namespace

PortalSettings::PortalSettings() : m_cancellable(g_cancellable_new())
{
    // The connection is shared: cancelling would end it for others, so only the answer is dropped.
    g_bus_get(
        G_BUS_TYPE_SESSION, nullptr,
        [](GObject*, GAsyncResult* result, gpointer cancellable) {
            const GObjectPointer<GCancellable> owner(G_CANCELLABLE(cancellable));
            GDBusConnection* connection = g_bus_get_finish(result, nullptr);
            auto* self =
                static_cast<PortalSettings*>(g_object_get_data(G_OBJECT(owner.get()), "settings"));
            if (connection && self)
                self->connectTo(connection);
            else if (connection)
                g_object_unref(connection);
        },
        g_object_ref(m_cancellable));
    g_object_set_data(G_OBJECT(m_cancellable), "settings", this);
}

PortalSettings::~PortalSettings()
{
    g_object_set_data(G_OBJECT(m_cancellable), "settings", nullptr);
    g_cancellable_cancel(m_cancellable);
    g_object_unref(m_cancellable);
    if (!m_connection)
        return;
    g_dbus_connection_signal_unsubscribe(m_connection, m_subscription);
    g_object_unref(m_connection);
}

void PortalSettings::connectTo(GDBusConnection* connection)
{
    m_connection = connection;
    m_subscription = g_dbus_connection_signal_subscribe(
        connection, portalName, portalInterface, "SettingChanged", portalPath, nullptr,
        G_DBUS_SIGNAL_FLAGS_NONE,
        [](GDBusConnection*, const char*, const char*, const char*, const char*,
           GVariant* parameters, gpointer data) {
            auto* self = static_cast<PortalSettings*>(data);
            const char* space = nullptr;
            const char* key = nullptr;
            GVariant* value = nullptr;
            g_variant_get(parameters, "(&s&sv)", &space, &key, &value);
            const GVariantPointer owner(value);
            if (self->take(QString::fromUtf8(space), QString::fromUtf8(key), value))
                Q_EMIT self->changed();
        },
        this, nullptr);

    const char* namespaces[] = {"org.freedesktop.appearance", "org.gnome.desktop.interface",
                                "org.kde.kdeglobals.KDE", nullptr};
    g_dbus_connection_call(
        connection, portalName, portalPath, portalInterface, "ReadAll",
        g_variant_new("(^as)", namespaces), G_VARIANT_TYPE("(a{sa{sv}})"), G_DBUS_CALL_FLAGS_NONE,
        -1, m_cancellable,
        [](GObject* source, GAsyncResult* result, gpointer data) {
            const GVariantPointer answer(
                g_dbus_connection_call_finish(G_DBUS_CONNECTION(source), result, nullptr));
            // None also when it was cancelled, and `data` gone.
            if (answer)
                static_cast<PortalSettings*>(data)->takeAll(answer.get());
        },
        this);
}

void PortalSettings::takeAll(GVariant* answer)
{
    const GVariantPointer namespaces(g_variant_get_child_value(answer, 0));
    bool hasChanged = false;
    GVariantIter spaces;
    g_variant_iter_init(&spaces, namespaces.get());
    const char* space = nullptr;
    GVariantIter* keys = nullptr;
    while (g_variant_iter_loop(&spaces, "{&sa{sv}}", &space, &keys)) {
        const char* key = nullptr;
        GVariant* value = nullptr;
        while (g_variant_iter_loop(keys, "{&sv}", &key, &value))
            hasChanged |= take(QString::fromUtf8(space), QString::fromUtf8(key), value);
    }
    if (hasChanged)
        Q_EMIT changed();
}

/// True when the setting is one that matters here and has another value than before.
bool PortalSettings::take(const QString& space, const QString& key, GVariant* value)
{
    const auto setting = number(unwrapped(value).get());
    if (!setting)
        return false;
    if (space == u"org.freedesktop.appearance"_s && key == u"color-scheme"_s)
        return assign(m_isDark, *setting == prefersDark);
    if (space == u"org.freedesktop.appearance"_s && key == u"reduced-motion"_s)
        return assign(m_isAnimationReduced, *setting == prefersReducedMotion);
    if (key == u"enable-animations"_s || key == u"AnimationDurationFactor"_s)
        return assign(m_isAnimationReduced, *setting == 0);
    if (key == u"text-scaling-factor"_s && *setting > 0)
        return assign(m_textScale, *setting);
    return false;
}

} // namespace trovell
