// SPDX-License-Identifier: MIT

#include "app/scenes/DesktopLook.h"

#include "preferences/AppPreferences.h"
#include "views/style/DesktopFont.h"
#include "views/style/VisualStyle.h"
#include "views/words/Localization.h"

#include <QApplication>

namespace trovell {

DesktopLook::DesktopLook(VisualStyle& visual, Localization& words, AppPreferences& preferences,
                         std::function<bool()> isComposited)
    : m_visual(visual), m_words(words), m_preferences(preferences),
      m_isComposited(std::move(isComposited)),
      m_fontFactor(desktopFontFactor(QApplication::font().pointSizeF(),
                                     qEnvironmentVariable("XDG_CURRENT_DESKTOP")))
{
    m_visual.setComposited(m_isComposited());
    showDesktopSettings();
    showLanguage();
    connect(&m_preferences, &AppPreferences::appearanceChanged, this, &DesktopLook::showAppearance);
    connect(&m_preferences, &AppPreferences::languageChanged, this, &DesktopLook::showLanguage);
    connect(&m_desktop, &DesktopSettings::changed, this, &DesktopLook::showDesktopSettings);
    connect(qApp, &QGuiApplication::applicationStateChanged, this, &DesktopLook::refresh);
}

void DesktopLook::showAppearance()
{
    const AppAppearance chosen = m_preferences.appearance();
    const bool isDark =
        chosen == AppAppearance::dark || (chosen == AppAppearance::system && m_desktop.isDark());
    m_visual.setAppearance(isDark ? Appearance::dark : Appearance::light);
}

void DesktopLook::showDesktopSettings()
{
    showAppearance();
    m_visual.setAnimationReduced(m_desktop.isAnimationReduced());
    m_visual.setFontFactor(m_fontFactor * m_desktop.textScale());
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
    m_visual.setComposited(m_isComposited());
}

} // namespace trovell
