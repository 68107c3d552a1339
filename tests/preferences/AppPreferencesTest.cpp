// SPDX-License-Identifier: MIT

#include "preferences/AppPreferences.h"

#include "lab/Files.h"
#include "preferences/PreferenceStore.h"

#include <QtTest>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

using namespace trovell;
using namespace trovell::lab;
using namespace trovell::test;

class AppPreferencesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }

    void keepsValuesAcrossRuns()
    {
        writeFile(path(), R"({"onboarding.completed": true})");
        {
            PreferenceStore store(path());
            AppPreferences preferences(store);
            preferences.setAppearance(AppAppearance::dark);
            preferences.setLanguage(AppLanguage::brazilianPortuguese);
            preferences.setShowMenuBarItem(false);
            preferences.setKeepRunningAfterClose(false);
            preferences.setLaunchTimeout(30);
            preferences.setAutomaticallyCheckForUpdates(false);
        }
        PreferenceStore store(path());
        const AppPreferences preferences(store);
        QCOMPARE(preferences.appearance(), AppAppearance::dark);
        QCOMPARE(localeTag(preferences.language()), u"pt-BR"_s);
        QVERIFY(!preferences.showMenuBarItem());
        QVERIFY(!preferences.keepRunningAfterClose());
        QCOMPARE(preferences.launchTimeout(), 30.0);
        QVERIFY(!preferences.automaticallyCheckForUpdates());
        QVERIFY(terminatesAfterLastWindowClosed(store));
        QVERIFY(store.value(u"onboarding.completed"_s).toBool());
        constexpr auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther |
                                QFile::WriteOther | QFile::ExeGroup | QFile::ExeOther;
        QVERIFY(!(QFile::permissions(path()) & others));
    }

    void takesTheDefaultsForWhatItCannotRead()
    {
        const QByteArray unreadable[]{{},
                                      "{\"preferences.appe",
                                      R"({"preferences.appearance": "Dark",
        "preferences.language": 1, "preferences.showMenuBar": "false",
        "preferences.keepRunning": 0, "preferences.launchTimeout": "9",
        "preferences.automaticUpdates": "no"})"};
        for (const QByteArray& content : unreadable) {
            if (!content.isEmpty())
                writeFile(path(), content);
            PreferenceStore store(path());
            const AppPreferences preferences(store);
            QCOMPARE(preferences.appearance(), AppAppearance::light);
            QCOMPARE(preferences.language(), AppLanguage::system);
            QVERIFY(preferences.showMenuBarItem() && preferences.keepRunningAfterClose());
            QCOMPARE(preferences.launchTimeout(), 10.0);
            QVERIFY(preferences.automaticallyCheckForUpdates());
            QVERIFY(!terminatesAfterLastWindowClosed(store));
            QCOMPARE(QFile::exists(path()), !content.isEmpty());
        }
    }

    void keepsADamagedFile()
    {
        const QByteArray damaged("{\"preferences.appe");
        writeFile(path(), damaged);
        PreferenceStore store(path());
        AppPreferences(store).setLaunchTimeout(9);
        QCOMPARE(readFile(path() + u".damaged"_s), damaged);
        QCOMPARE(PreferenceStore(path()).value(u"preferences.launchTimeout"_s).toDouble(), 9.0);
    }

    void doesNotWaitForAPipe()
    {
        writeFile(path(), {});
        QFile::remove(path());
        QCOMPARE(mkfifo(qPrintable(path()), 0600), 0);
        PreferenceStore store(path());
        AppPreferences(store).setLaunchTimeout(9);
        QCOMPARE(PreferenceStore(path()).value(u"preferences.launchTimeout"_s).toDouble(), 9.0);
    }

private:
    [[nodiscard]] QString path() const { return m_folder->filePath(u"trovell/preferences.json"_s); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

QTEST_GUILESS_MAIN(AppPreferencesTest)
#include "AppPreferencesTest.moc"
