// SPDX-License-Identifier: MIT
//
// How the desktop wants programs to look, from the settings portal
// (org.freedesktop.portal.Settings, namespaces org.freedesktop.appearance,
// org.gnome.desktop.interface and org.kde.kdeglobals.KDE), and live. Main thread only.
#pragma once

#include <QObject>
#include <QString>

struct _GCancellable;
struct _GDBusConnection;
struct _GVariant;

namespace trovell {

class DesktopSettings final : public QObject {
    Q_OBJECT

public:
    /// Asks at once and without waiting. Without a session bus or a portal the values stay as they
    /// are at first: light, animated, text as large as usual.
    DesktopSettings();
    ~DesktopSettings() override;

    [[nodiscard]] bool isDark() const { return m_isDark; }
    /// Whether the desktop asks for little or no animation.
    [[nodiscard]] bool isAnimationReduced() const { return m_isAnimationReduced; }
    /// By how much the user wants text larger than the desktop's own size.
    [[nodiscard]] double textScale() const { return m_textScale; }

Q_SIGNALS:
    void changed();

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
