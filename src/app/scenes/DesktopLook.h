// SPDX-License-Identifier: MIT
//
// Keeps look and words in step with the preferences and the desktop, live. Main thread.
#pragma once

#include "platform/freedesktop/DesktopSettings.h"

#include <QObject>

namespace trovell {

class AppPreferences;
class Localization;
class VisualStyle;

class DesktopLook : public QObject {
    Q_OBJECT

public:
    /// All outlive this object. Until the desktop has answered, "System" is light. Whether the
    /// desktop composites is asked through `isComposited`, again whenever the program becomes
    /// active.
    DesktopLook(VisualStyle& visual, Localization& words, AppPreferences& preferences,
                std::function<bool()> isComposited);

private:
    void showAppearance();
    void showDesktopSettings();
    void showLanguage();
    void refresh(Qt::ApplicationState state);

    VisualStyle& m_visual;
    Localization& m_words;
    AppPreferences& m_preferences;
    std::function<bool()> m_isComposited;
    /// The desktop's text at its usual size, see desktopFontFactor().
    double m_fontFactor;
    DesktopSettings m_desktop;
};

} // namespace trovell
