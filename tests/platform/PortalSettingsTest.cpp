// SPDX-License-Identifier: MIT
//
// What the desktop's portal says about looks, from a portal on a bus of its own.

#include "platform/freedesktop/PortalSettings.h"
#include "lab/PrivateSession.h"
#include "support/BusClient.h"
#include "support/Patience.h"

#include <QtTest>

using namespace trovell;
using namespace trovell::lab;
using namespace trovell::test;

namespace {

constexpr const char* portalPath = "/org/freedesktop/portal/desktop";
constexpr const char* introspection =
    "<node><interface name='org.freedesktop.portal.Settings'>"
    "<method name='ReadAll'><arg type='as' direction='in'/>"
    "<arg type='a{sa{sv}}' direction='out'/></method>"
    "<signal name='SettingChanged'><arg type='s'/><arg type='s'/><arg type='v'/></signal>"
    "</interface></node>";

/// A portal that answers with one text in the notation of GVariant. Main thread.
class Portal {
public:
    explicit Portal(const char* settings) : m_settings(settings)
    {
        static const GDBusInterfaceVTable methods = {&Portal::answer, nullptr, nullptr, {}};
        GDBusNodeInfo* node = g_dbus_node_info_new_for_xml(introspection, nullptr);
        g_dbus_connection_register_object(m_bus.connection(), portalPath, node->interfaces[0],
                                          &methods, this, nullptr, nullptr);
        g_dbus_node_info_unref(node);
    }

    void change(const char* space, const char* key, GVariant* value)
    {
        g_dbus_connection_emit_signal(m_bus.connection(), nullptr, portalPath,
                                      "org.freedesktop.portal.Settings", "SettingChanged",
                                      g_variant_new("(ssv)", space, key, value), nullptr);
    }

private:
    static void answer(GDBusConnection*, const char*, const char*, const char*, const char*,
                       GVariant*, GDBusMethodInvocation* invocation, gpointer self)
    {
        g_dbus_method_invocation_return_value(
            invocation, g_variant_new_parsed(static_cast<Portal*>(self)->m_settings));
    }

    const char* m_settings;
    BusClient m_bus{"org.freedesktop.portal.Desktop"};
};

} // namespace

class PortalSettingsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_session.startBus()); }

    void followsThePortal()
    {
        Portal portal("({'org.freedesktop.appearance': {'color-scheme': <uint32 1>}, "
                      "'org.gnome.desktop.interface': {'enable-animations': <false>, "
                      "'text-scaling-factor': <1.25>}},)");
        PortalSettings settings;
        const QSignalSpy changed(&settings, &PortalSettings::changed);
        QTRY_COMPARE(changed.size(), 1);
        QVERIFY(settings.isDark());
        QVERIFY(settings.isAnimationReduced());
        QCOMPARE(settings.textScale(), 1.25);

        portal.change("org.freedesktop.appearance", "color-scheme", g_variant_new_uint32(2));
        QTRY_COMPARE(changed.size(), 2);
        QVERIFY(!settings.isDark());
        // One that changes nothing is not announced; KDE says its animation factor as a text.
        portal.change("org.freedesktop.appearance", "color-scheme", g_variant_new_uint32(0));
        portal.change("org.kde.kdeglobals.KDE", "AnimationDurationFactor",
                      g_variant_new_variant(g_variant_new_string("0.5")));
        QTRY_COMPARE(changed.size(), 3);
        QVERIFY(!settings.isAnimationReduced());
    }

    void survivesNonsense()
    {
        Portal portal("({'org.freedesktop.appearance': {'color-scheme': <'dark'>}, "
                      "'org.gnome.desktop.interface': {'text-scaling-factor': <-1.0>, "
                      "'enable-animations': <['no']>}},)");
        // Gone before it is connected, and before the answer: nobody is touched.
        std::make_unique<PortalSettings>().reset();
        auto goneLater = std::make_unique<PortalSettings>();
        QCoreApplication::processEvents();
        goneLater.reset();
        PortalSettings settings;
        const QSignalSpy changed(&settings, &PortalSettings::changed);
        QTest::qWait(200);
        QVERIFY(changed.isEmpty());
        QCOMPARE(settings.textScale(), 1.0);
    }

private:
    PrivateSession m_session;
};

QTEST_GUILESS_MAIN(PortalSettingsTest)
#include "PortalSettingsTest.moc"
