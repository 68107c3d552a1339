// SPDX-License-Identifier: MIT
//
// The first page of the settings. Main thread.
#pragma once

#include "views/app/SettingsEnvironment.h"

#include <QWidget>

#include <optional>

class QLayout;
class QSlider;

namespace trovell {

class Picker;
class Switch;
class TextLabel;

/// While it lives, switching the menu bar icon off switches keep-running off too: without the icon
/// the program ends with its last window. Switching it on again changes nothing else.
class GeneralSettingsView : public QWidget {
    Q_OBJECT

public:
    explicit GeneralSettingsView(const SettingsEnvironment& environment, QWidget* parent = nullptr);

private:
    QWidget* buildPickers();
    QWidget* buildSwitches();
    QWidget* buildTimeout();
    QLayout* buildTimeoutSlider();
    Picker* buildAppearance();
    Picker* buildLanguage();
    void showLoginItem();
    void changeLoginItem(bool isWanted);
    void showTimeout();
    void coupleKeepRunning();

    SettingsEnvironment m_environment;
    Switch* m_login;
    TextLabel* m_loginError;
    QSlider* m_timeout;
    TextLabel* m_timeoutText;
    bool m_showsMenuBarItem;
};

/// Seconds without their fraction; none for what no integer holds.
[[nodiscard]] std::optional<qint64> wholeSeconds(double seconds);

} // namespace trovell
