// SPDX-License-Identifier: MIT
//
// The user's application-wide choices. A new value is in force, stored and announced the moment it
// is assigned. Main thread.
#pragma once

#include "preferences/AppAppearance.h"
#include "preferences/AppLanguage.h"

#include <QObject>

namespace trovell {

class PreferenceStore;

class AppPreferences final : public QObject {
    Q_OBJECT

public:
    /// Reads all values once and writes nothing. A value that is missing or of another type gives
    /// the default.
    explicit AppPreferences(PreferenceStore& defaults);

    [[nodiscard]] AppAppearance appearance() const { return m_appearance; }
    [[nodiscard]] AppLanguage language() const { return m_language; }
    [[nodiscard]] bool showMenuBarItem() const { return m_showMenuBarItem; }
    [[nodiscard]] bool keepRunningAfterClose() const { return m_keepRunningAfterClose; }
    /// Seconds, as stored: not limited to what the settings offer.
    [[nodiscard]] double launchTimeout() const { return m_launchTimeout; }
    [[nodiscard]] bool automaticallyCheckForUpdates() const
    {
        return m_automaticallyCheckForUpdates;
    }

    void setAppearance(AppAppearance appearance);
    void setLanguage(AppLanguage language);
    void setShowMenuBarItem(bool show);
    void setKeepRunningAfterClose(bool keepRunning);
    void setLaunchTimeout(double seconds);
    void setAutomaticallyCheckForUpdates(bool check);

Q_SIGNALS:
    // Sent at every assignment, of an unchanged value too.
    void appearanceChanged();
    void languageChanged();
    void showMenuBarItemChanged();
    void keepRunningAfterCloseChanged();
    void launchTimeoutChanged();
    void automaticallyCheckForUpdatesChanged();

private:
    PreferenceStore& m_defaults;
    AppAppearance m_appearance;
    AppLanguage m_language;
    bool m_showMenuBarItem;
    bool m_keepRunningAfterClose;
    double m_launchTimeout;
    bool m_automaticallyCheckForUpdates;
};

/// Whether the program ends when its last window was closed: only when keep-running is stored as
/// false. Asks the store itself, at that moment.
[[nodiscard]] bool terminatesAfterLastWindowClosed(const PreferenceStore& defaults);

} // namespace trovell
