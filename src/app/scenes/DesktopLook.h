// SPDX-License-Identifier: MIT
//
// Keeps look and words in step with the preferences and the desktop, live. Main thread.
#pragma once

#include <QObject>

namespace trovell {

class AppPreferences;
class Localization;
struct PlatformAdapters;
class VisualStyle;

class DesktopLook : public QObject {
    Q_OBJECT

public:
    /// All outlive this object. Until the desktop has answered, "System" is light and windows are
    /// opaque. Whether they can be translucent is asked again whenever the program becomes active.
    DesktopLook(VisualStyle& visual, Localization& words, const AppPreferences& preferences,
                const PlatformAdapters& platform);

private:
    void showAppearance();
    void showDesktopSettings();
    void showLanguage();
    void refresh(Qt::ApplicationState state);
    void askForTranslucency();

    VisualStyle& m_visual;
    Localization& m_words;
    const AppPreferences& m_preferences;
    const PlatformAdapters& m_platform;
    /// The desktop's text at its usual size, see desktopFontFactor().
    double m_fontFactor;
};

} // namespace trovell
