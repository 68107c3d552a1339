// SPDX-License-Identifier: MIT

#include "preferences/AppPreferences.h"

#include "preferences/PreferenceStore.h"

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

const QString appearanceKey = u"preferences.appearance"_s;
const QString languageKey = u"preferences.language"_s;
const QString showMenuBarKey = u"preferences.showMenuBar"_s;
const QString keepRunningKey = u"preferences.keepRunning"_s;
const QString launchTimeoutKey = u"preferences.launchTimeout"_s;
const QString automaticUpdatesKey = u"preferences.automaticUpdates"_s;

constexpr double defaultLaunchTimeout = 10.0;

} // namespace

AppPreferences::AppPreferences(PreferenceStore& defaults)
    : m_defaults(defaults),
      m_appearance(appearanceFromRawValue(defaults.value(appearanceKey).toString())
                       .value_or(AppAppearance::light)),
      m_language(languageFromRawValue(defaults.value(languageKey).toString())
                     .value_or(AppLanguage::system)),
      m_showMenuBarItem(defaults.value(showMenuBarKey).toBool(true)),
      m_keepRunningAfterClose(defaults.value(keepRunningKey).toBool(true)),
      m_launchTimeout(defaults.value(launchTimeoutKey).toDouble(defaultLaunchTimeout)),
      m_automaticallyCheckForUpdates(defaults.value(automaticUpdatesKey).toBool(true))
{
}

void AppPreferences::setAppearance(AppAppearance appearance)
{
    m_appearance = appearance;
    m_defaults.setValue(appearanceKey, rawValue(appearance));
    Q_EMIT
    appearanceChanged();
}

void AppPreferences::setLanguage(AppLanguage language)
{
    m_language = language;
    m_defaults.setValue(languageKey, rawValue(language));
    Q_EMIT
    languageChanged();
}

void AppPreferences::setShowMenuBarItem(bool show)
{
    m_showMenuBarItem = show;
    m_defaults.setValue(showMenuBarKey, show);
    Q_EMIT
    showMenuBarItemChanged();
}

void AppPreferences::setKeepRunningAfterClose(bool keepRunning)
{
    m_keepRunningAfterClose = keepRunning;
    m_defaults.setValue(keepRunningKey, keepRunning);
    Q_EMIT
    keepRunningAfterCloseChanged();
}

void AppPreferences::setLaunchTimeout(double seconds)
{
    m_launchTimeout = seconds;
    m_defaults.setValue(launchTimeoutKey, seconds);
    Q_EMIT
    launchTimeoutChanged();
}

void AppPreferences::setAutomaticallyCheckForUpdates(bool check)
{
    m_automaticallyCheckForUpdates = check;
    m_defaults.setValue(automaticUpdatesKey, check);
    Q_EMIT
    automaticallyCheckForUpdatesChanged();
}

bool terminatesAfterLastWindowClosed(const PreferenceStore& defaults)
{
    return !defaults.value(keepRunningKey).toBool(true);
}

} // namespace trovell
