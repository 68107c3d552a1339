// SPDX-License-Identifier: MIT

#include "app/scenes/DesktopLook.h"

#include "platform/desktop/PlatformAdapters.h"
#include "preferences/AppPreferences.h"
#include "views/style/DesktopFont.h"
#include "views/style/VisualStyle.h"
#include "views/words/Localization.h"

#include <QApplication>

namespace trovell {

DesktopLook::DesktopLook(VisualStyle& visual, Localization& words,
                         const AppPreferences& preferences, const PlatformAdapters& platform)
    : m_visual(visual), m_words(words), m_preferences(preferences), m_platform(platform),
      m_fontFactor(desktopFontFactor(QApplication::font().pointSizeF(),
                                     qEnvironmentVariable("XDG_CURRENT_DESKTOP")))
{
    m_visual.setComposited(false);
    askForTranslucency();
    showDesktopSettings();
    showLanguage();
    connect(&m_preferences, &AppPreferences::appearanceChanged, this, &DesktopLook::showAppearance);
    connect(&m_preferences, &AppPreferences::languageChanged, this, &DesktopLook::showLanguage);
    connect(m_platform.settings.get(), &DesktopSettings::changed, this,
            &DesktopLook::showDesktopSettings);
    connect(qApp, &QGuiApplication::applicationStateChanged, this, &DesktopLook::refresh);
}

void DesktopLook::showAppearance()
{
    const AppAppearance chosen = m_preferences.appearance();
    const bool isDark = chosen == AppAppearance::dark ||
                        (chosen == AppAppearance::system && m_platform.settings->isDark());
    m_visual.setAppearance(isDark ? Appearance::dark : Appearance::light);
}

void DesktopLook::showDesktopSettings()
{
    showAppearance();
    m_visual.setAnimationReduced(m_platform.settings->isAnimationReduced());
    m_visual.setFontFactor(m_fontFactor * m_platform.settings->textScale());
}

void DesktopLook::showLanguage()
{
    m_words.setLanguage(localeTag(m_preferences.language()));
}

void DesktopLook::refresh(Qt::ApplicationState state)
{
    if (state != Qt::ApplicationActive)
        return;
    m_words.refreshSystemLocale();
    askForTranslucency();
}

void DesktopLook::askForTranslucency()
{
    m_platform.windowSystem->ask({}).then(this, [this](const DesktopSnapshot& desktop) {
        m_visual.setComposited(desktop.abilities.blendsWindows);
    });
}

} // namespace trovell
