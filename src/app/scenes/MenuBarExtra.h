// SPDX-License-Identifier: MIT
//
// The icon in the desktop's tray that opens the menu of workspaces. Main thread.
#pragma once

#include <QObject>
#include <QSystemTrayIcon>

namespace trovell {

class AppPreferences;
class MenuBarWorkspaceView;
struct MenuBarEnvironment;

/// Inserted while the preference says so, and only useful on desktops with a tray: nothing may be
/// reachable through it alone.
class MenuBarExtra : public QObject {
    Q_OBJECT

public:
    /// `iconName` is that of the theme's icon for the tray.
    MenuBarExtra(const MenuBarEnvironment& environment, AppPreferences& preferences,
                 const QString& iconName);
    ~MenuBarExtra() override;

    [[nodiscard]] MenuBarWorkspaceView& content() { return *m_content; }

private:
    void followPreference();
    void answerClick(QSystemTrayIcon::ActivationReason reason);

    AppPreferences& m_preferences;
    MenuBarWorkspaceView* m_content;
    QSystemTrayIcon m_icon;
};

} // namespace trovell
