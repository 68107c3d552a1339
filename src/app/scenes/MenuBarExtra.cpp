// SPDX-License-Identifier: MIT

#include "app/scenes/MenuBarExtra.h"

#include "preferences/AppPreferences.h"
#include "views/app/MenuBarWorkspaceView.h"

#include <QCursor>
#include <QMenu>
#include <QPainter>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

/// A theme that knows the program's own symbol tints it for the panel. The brand tint stands out
/// from light and dark panels alike.
QIcon trayIcon(const VisualStyle& visual, const QString& name)
{
    QIcon drawn;
    for (const int size : {16, 22, 24, 32, 48}) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        visual.paintSymbol(painter, pixmap.rect(), u"TrovellTray-symbolic"_s,
                           visual.color(ColorToken::brand));
        painter.end();
        drawn.addPixmap(pixmap);
    }
    return QIcon::fromTheme(name, drawn);
}

} // namespace

MenuBarExtra::MenuBarExtra(const MenuBarEnvironment& environment, AppPreferences& preferences,
                           const QString& iconName)
    : m_preferences(preferences), m_content(new MenuBarWorkspaceView(environment, this)),
      m_icon(trayIcon(environment.visual, iconName))
{
    m_icon.setToolTip(u"Trovell"_s);
    m_icon.setContextMenu(m_content->menu());
    connect(&m_icon, &QSystemTrayIcon::activated, this, &MenuBarExtra::answerClick);
    connect(&m_preferences, &AppPreferences::showMenuBarItemChanged, this,
            &MenuBarExtra::followPreference);
    followPreference();
}

MenuBarExtra::~MenuBarExtra() = default;

void MenuBarExtra::followPreference()
{
    m_icon.setVisible(m_preferences.showMenuBarItem());
}

/// Trays open the menu at a right click by themselves.
void MenuBarExtra::answerClick(QSystemTrayIcon::ActivationReason reason)
{
    if (reason == QSystemTrayIcon::Trigger)
        m_content->menu()->popup(QCursor::pos());
}

} // namespace trovell
