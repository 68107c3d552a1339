// SPDX-License-Identifier: MIT

#include "platform/freedesktop/DesktopActivation.h"

#include "platform/freedesktop/GObjectPointer.h"

#include <array>
#include <utility>

namespace trovell {

namespace {

/// The name of the desktop entry's action.
constexpr const char* openAction = "open-trovell";

/// What the desktop passes on with a request, and the environment variable that a new process
/// finds it in; the newer form first.
constexpr std::array tokenNames{std::pair{"activation-token", "XDG_ACTIVATION_TOKEN"},
                                std::pair{"desktop-startup-id", "DESKTOP_STARTUP_ID"}};

/// GApplication with the hooks that its subclasses have. GLib allocates it, zeroed.
struct ActivatedApplication {
    GApplication parent;
    DesktopActivation* owner;
    /// That of the request being answered; null when there is none.
    GVariant* platformData;
};

ActivatedApplication* activated(gpointer application)
{
    return static_cast<ActivatedApplication*>(application);
}

QString startupToken(GVariant* platformData)
{
    for (const auto& [key, variable] : tokenNames) {
        const char* token = nullptr;
        if (platformData && g_variant_lookup(platformData, key, "&s", &token) && *token != '\0')
            return QString::fromUtf8(token);
    }
    return {};
}

void requestActivation(gpointer application)
{
    const auto* self = activated(application);
    Q_EMIT
    self->owner->activationRequested(startupToken(self->platformData));
}

void beginRequest(GApplication* application, GVariant* platformData)
{
    activated(application)->platformData = platformData;
}

void endRequest(GApplication* application, GVariant*)
{
    activated(application)->platformData = nullptr;
}

void activate(GApplication* application)
{
    requestActivation(application);
}

/// The program opens no files, but it can be asked to.
void open(GApplication* application, GFile**, gint, const gchar*)
{
    requestActivation(application);
}

void activateAction(GSimpleAction*, GVariant*, gpointer application)
{
    requestActivation(application);
}

void addStartupTokens(GApplication*, GVariantBuilder* platformData)
{
    for (const auto& [key, variable] : tokenNames) {
        const char* token = g_getenv(variable);
        if (token && g_utf8_validate(token, -1, nullptr))
            g_variant_builder_add(platformData, "{sv}", key, g_variant_new_string(token));
    }
}

void initializeClass(gpointer type, gpointer)
{
    auto* methods = static_cast<GApplicationClass*>(type);
    methods->before_emit = &beginRequest;
    methods->after_emit = &endRequest;
    methods->activate = &activate;
    methods->open = &open;
    methods->add_platform_data = &addStartupTokens;
}

GType activatedApplicationType()
{
    static const GType type = g_type_register_static_simple(
        G_TYPE_APPLICATION, "TrovellActivatedApplication", sizeof(GApplicationClass),
        &initializeClass, sizeof(ActivatedApplication), nullptr, static_cast<GTypeFlags>(0));
    return type;
}

GApplication* makeApplication(const QByteArray& id, DesktopActivation* owner)
{
    auto* application = static_cast<GApplication*>(
        g_object_new(activatedApplicationType(), "application-id", id.constData(), "flags",
                     G_APPLICATION_HANDLES_OPEN, nullptr));
    activated(application)->owner = owner;
    const GObjectPointer<GSimpleAction> action(g_simple_action_new(openAction, nullptr));
    g_signal_connect(action.get(), "activate", G_CALLBACK(&activateAction), application);
    g_action_map_add_action(G_ACTION_MAP(application), G_ACTION(action.get()));
    return application;
}

} // namespace

DesktopActivation::DesktopActivation(const QByteArray& applicationId)
    : m_application(makeApplication(applicationId, this))
{
    if (!g_application_register(m_application, nullptr, nullptr))
        return;
    m_isPrimary = g_application_get_is_remote(m_application) == FALSE;
    // By default GIO ends the process together with its bus.
    if (auto* bus = g_application_get_dbus_connection(m_application))
        g_dbus_connection_set_exit_on_close(bus, FALSE);
}

DesktopActivation::~DesktopActivation()
{
    g_object_unref(m_application);
}

bool DesktopActivation::forwardToRunningInstance()
{
    if (m_isPrimary)
        return false;
    g_application_activate(m_application);
    // The process is about to end.
    g_dbus_connection_flush_sync(g_application_get_dbus_connection(m_application), nullptr,
                                 nullptr);
    return true;
}

} // namespace trovell
