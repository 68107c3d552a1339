// SPDX-License-Identifier: MIT
//
// The desktop's wishes from the settings portal (org.freedesktop.portal.Settings, namespaces
// org.freedesktop.appearance, org.gnome.desktop.interface and org.kde.kdeglobals.KDE). Main thread
// only.
#pragma once

#include "services/DesktopSettings.h"

#include <QString>

struct _GCancellable;
struct _GDBusConnection;
struct _GVariant;

namespace trovell {

class PortalSettings final : public DesktopSettings {
public:
    /// Asks at once and without waiting. Without a session bus or a portal the values stay as they
    /// are at first: light, animated, text as large as usual.
    PortalSettings();
    ~PortalSettings() override;

    [[nodiscard]] bool isDark() const override { return m_isDark; }
    [[nodiscard]] bool isAnimationReduced() const override { return m_isAnimationReduced; }
    [[nodiscard]] double textScale() const override { return m_textScale; }

private:
    void connectTo(_GDBusConnection* connection);
    void takeAll(_GVariant* namespaces);
    bool take(const QString& space, const QString& key, _GVariant* value);

    _GCancellable* m_cancellable;
    _GDBusConnection* m_connection = nullptr;
    unsigned m_subscription = 0;
    bool m_isDark = false;
    bool m_isAnimationReduced = false;
    double m_textScale = 1;
};

} // namespace trovell
