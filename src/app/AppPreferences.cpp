#include "app/AppPreferences.h"

#include "app/PreferenceStore.h"

namespace trovell {

namespace {

const QString appearanceKey = QStringLiteral("preferences.appearance");
const QString languageKey = QStringLiteral("preferences.language");
const QString showMenuBarKey = QStringLiteral("preferences.showMenuBar");
const QString keepRunningKey = QStringLiteral("preferences.keepRunning");
const QString launchTimeoutKey = QStringLiteral("preferences.launchTimeout");
const QString automaticUpdatesKey = QStringLiteral("preferences.automaticUpdates");

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
