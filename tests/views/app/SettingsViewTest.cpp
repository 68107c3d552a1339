// SPDX-License-Identifier: MIT
//
// The settings as a person changes them, and as they follow what is changed elsewhere.
#include "views/app/SettingsView.h"
#include "preferences/PreferenceStore.h"
#include "views/app/GeneralSettingsView.h"
#include "views/app/SettingsTabBar.h"
#include "views/style/PushButton.h"
#include "views/style/Switch.h"
#include "views/support/Controls.h"
#include "views/support/ViewFixture.h"

#include <QSlider>

using namespace Qt::StringLiterals;

using namespace trovell;
using namespace trovell::test;
using Page = SettingsView::Page;

class SettingsViewTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { show(appConfiguration()); }
    void cleanup()
    {
        m_view.reset();
        m_fixture.reset();
    }

    void switchesFollowAndAreFollowed()
    {
        Switch& keep = toggle(m_keepRunning);
        QVERIFY(keep.isChecked());
        // On the label at the leading edge, far from the switch itself, and beside it in the row.
        QTest::mouseClick(&keep, Qt::LeftButton, {}, QPoint(4, keep.height() / 2));
        QVERIFY(!preferences().keepRunningAfterClose());
        QTest::mouseClick(keep.parentWidget(), Qt::LeftButton, {}, QPoint(3, 3));
        QVERIFY(preferences().keepRunningAfterClose());
        preferences().setKeepRunningAfterClose(false);
        QVERIFY(!keep.isChecked());
    }

    void endsWithTheLastWindowWhereThereIsNoIcon()
    {
        Switch& icon = toggle(u"Show menu bar icon"_s);
        Switch& keep = toggle(m_keepRunning);
        icon.click();
        QVERIFY(!preferences().showMenuBarItem() && !keep.isChecked());
        QVERIFY(terminatesAfterLastWindowClosed(m_fixture->dependencies().defaults()));
        icon.click();
        QVERIFY(icon.isChecked() && !keep.isChecked());

        // The user's later choice stands until the icon goes again.
        icon.click();
        keep.click();
        preferences().setShowMenuBarItem(false);
        QVERIFY(preferences().keepRunningAfterClose());
    }

    void showsWhatTheDesktopMadeOfTheLoginItem()
    {
        FakeLoginItemSystem& item = *m_fixture->loginItem;
        Switch& control = toggle(u"Launch Trovell at login"_s);
        item.failure = u"Autostart is locked."_s;
        QTest::mouseClick(&control, Qt::LeftButton);
        QVERIFY(!control.isChecked() && shows(u"Autostart is locked."_s));
        item.failure.reset();
        item.registered = LoginItemStatus::requiresApproval; // The user keeps it off.
        QTest::mouseClick(&control, Qt::LeftButton);
        QVERIFY(!control.isChecked() && !shows(u"Autostart is locked."_s));
        item.registered = LoginItemStatus::enabled;
        QTest::mouseClick(&control, Qt::LeftButton);
        QVERIFY(control.isChecked());
        QCOMPARE(item.registerCount, 3);
        QCOMPARE(item.unregisterCount, 0);
    }

    void storesTheTimeoutAndShowsAnyStoredOne()
    {
        auto* slider = find<QSlider>(*m_view, u"Workspace launch timeout"_s);
        const auto shown = [this] {
            QString texts;
            for (const QLabel* label : m_view->findChildren<QLabel*>()) {
                if (label->isVisible() && label->text().startsWith(u"Current timeout"_s))
                    texts += label->text();
            }
            return texts;
        };
        QTest::mouseClick(slider, Qt::LeftButton, {}, QPoint(2, slider->height() / 2));
        QCOMPARE(preferences().launchTimeout(), 8.0);
        QCOMPARE(shown(), u"Current timeout: 8 seconds"_s);
        QSignalSpy writes(&preferences(), &AppPreferences::launchTimeoutChanged);
        for (const auto& [seconds, position, text] :
             {std::tuple{12345.9, 12, u"Current timeout: 12345 seconds"_s},
              {-2.7, 8, u"Current timeout: -2 seconds"_s},
              {1e19, 12, QString()},
              {qInf(), 12, QString()},
              {qQNaN(), 8, QString()}}) {
            preferences().setLaunchTimeout(seconds);
            QCOMPARE(slider->value(), position);
            QCOMPARE(shown(), text);
        }
        QCOMPARE(writes.size(), 5);
    }

    void checksForUpdatesWhereTheyAreConfigured()
    {
        m_view->showPage(Page::updates);
        QVERIFY(!toggle(u"Automatically check for updates"_s).isEnabled());
        AppConfiguration configuration = appConfiguration();
        configuration.sparkleAppcastURL = QUrl(u"https://updates.example/feed.xml"_s);
        configuration.sparklePublicKey = u"no key at all"_s;
        show(configuration);
        m_view->showPage(Page::updates);
        const Updater* updater = m_fixture->dependencies().updateController().controller();
        QSignalSpy checks(updater, &Updater::checkRequested);
        click(*m_view, u"Check Now"_s);
        QCOMPARE(checks.size(), 1);
        QTest::mouseClick(&toggle(u"Automatically check for updates"_s), Qt::LeftButton);
        QVERIFY(!preferences().automaticallyCheckForUpdates());
    }

    void turnsPagesByKeyboardAndOpensLinks()
    {
        auto* tabs = m_view->findChild<SettingsTabBar*>();
        tabs->setFocus(Qt::TabFocusReason);
        QTest::keyClick(tabs, Qt::Key_Right);
        QCOMPARE(m_view->page(), Page::updates);
        QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(2).center());
        QCOMPARE(m_view->page(), Page::about);
        for (SymbolLink* link : m_view->findChildren<SymbolLink*>())
            QTest::mouseClick(link, Qt::LeftButton);
        const AppConfiguration& pages = m_fixture->dependencies().configuration();
        QCOMPARE(m_fixture->resources->openedResources(),
                 (QList<QUrl>{pages.privacyURL, pages.termsURL, pages.supportURL}));
    }

    void changesLanguageWhileItIsOpen()
    {
        // The last two are those of the tab bar itself, which it never shows here.
        QStringList data{u"Trovell"_s, u"Scroll Left"_s, u"Scroll Right"_s};
        for (const AppLanguage named : allLanguages().sliced(1))
            data += displayName(named).productText();
        for (const Page page : {Page::general, Page::updates, Page::about}) {
            m_view->showPage(page);
            QCOMPARE(languageProblems(*m_view, m_fixture->environment().words, data), QString());
        }
    }

private:
    void show(const AppConfiguration& configuration)
    {
        cleanup();
        m_fixture = std::make_unique<ViewFixture>(configuration);
        m_view = std::make_unique<SettingsView>(m_fixture->settings());
        m_view->show();
    }
    [[nodiscard]] AppPreferences& preferences() { return m_fixture->dependencies().preferences(); }
    [[nodiscard]] Switch& toggle(const QString& name) { return *find<Switch>(*m_view, name); }
    [[nodiscard]] bool shows(const QString& text) const
    {
        return find<QLabel>(*m_view, text) != nullptr;
    }

    std::unique_ptr<ViewFixture> m_fixture;
    std::unique_ptr<SettingsView> m_view;
    const QString m_keepRunning = u"Keep Trovell running after closing the main window"_s;
};

QTEST_MAIN(SettingsViewTest)
#include "SettingsViewTest.moc"
