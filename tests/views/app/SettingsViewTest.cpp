// The settings as a person changes them, and as they follow what is changed elsewhere.
#include "views/app/SettingsView.h"
#include "app/PreferenceStore.h"
#include "views/app/GeneralSettingsView.h"
#include "views/app/SettingsTabBar.h"
#include "views/style/Picker.h"
#include "views/style/PopupMenu.h"
#include "views/style/Slider.h"
#include "views/style/Switch.h"
#include "views/style/SymbolLink.h"
#include "views/support/ViewFixture.h"
#include "words/WidgetTexts.h"

using namespace trovell;
using namespace trovell::test;

namespace {

using Getter = bool (AppPreferences::*)() const;
using Setter = void (AppPreferences::*)(bool);

} // namespace

class SettingsViewTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_fixture = std::make_unique<ViewFixture>();
        show();
    }
    void cleanup()
    {
        m_view.reset();
        m_fixture.reset();
    }

    void switchesFollowAndAreFollowed_data();
    void switchesFollowAndAreFollowed();
    void endsWithTheLastWindowWhereThereIsNoIcon();
    void showsWhatTheDesktopMadeOfTheLoginItem_data();
    void showsWhatTheDesktopMadeOfTheLoginItem();
    void picksTheLanguage();
    void storesTheTimeout();
    void showsAnyStoredTimeout_data();
    void showsAnyStoredTimeout();
    void explainsWhyThereAreNoUpdates();
    void checksForUpdatesWhereTheyAreConfigured();
    void opensThePages();
    void turnsPagesByKeyboard();
    void changesLanguageWhileItIsOpen_data();
    void changesLanguageWhileItIsOpen();

private:
    void show()
    {
        m_view = std::make_unique<SettingsView>(m_fixture->environment());
        m_view->show();
    }
    [[nodiscard]] AppPreferences& preferences() { return m_fixture->dependencies().preferences(); }
    template <class Control> [[nodiscard]] Control* named(const QString& name) const
    {
        for (Control* control : m_view->findChildren<Control*>())
            if (control->accessibleName() == name)
                return control;
        qFatal("nothing is named %s", qPrintable(name));
    }
    [[nodiscard]] QLabel* label(const QString& text) const
    {
        for (QLabel* found : m_view->findChildren<QLabel*>())
            if (found->text() == text)
                return found;
        return nullptr;
    }
    [[nodiscard]] bool shows(const QString& text) const
    {
        const QLabel* found = label(text);
        return found && found->isVisible();
    }

    std::unique_ptr<ViewFixture> m_fixture;
    std::unique_ptr<SettingsView> m_view;
};

void SettingsViewTest::switchesFollowAndAreFollowed_data()
{
    using Preferences = AppPreferences;
    QTest::addColumn<QString>("name");
    QTest::addColumn<Getter>("value");
    QTest::addColumn<Setter>("setValue");
    QTest::newRow("icon") << u"Show menu bar icon"_qs << &Preferences::showMenuBarItem
                          << &Preferences::setShowMenuBarItem;
    QTest::newRow("keep running") << u"Keep Trovell running after closing the main window"_qs
                                  << &Preferences::keepRunningAfterClose
                                  << &Preferences::setKeepRunningAfterClose;
}

void SettingsViewTest::switchesFollowAndAreFollowed()
{
    QFETCH(QString, name);
    QFETCH(Getter, value);
    QFETCH(Setter, setValue);
    auto* control = named<Switch>(name);
    QVERIFY(control->isChecked());
    // On the label at the leading edge, far from the switch itself, and beside it in the row.
    QTest::mouseClick(control, Qt::LeftButton, {}, QPoint(4, control->height() / 2));
    QVERIFY(!(preferences().*value)());
    QTest::mouseClick(control->parentWidget(), Qt::LeftButton, {}, QPoint(3, 3));
    QVERIFY((preferences().*value)());
    (preferences().*setValue)(false);
    QVERIFY(!control->isChecked());
}

void SettingsViewTest::endsWithTheLastWindowWhereThereIsNoIcon()
{
    auto* icon = named<Switch>(u"Show menu bar icon"_qs);
    auto* keep = named<Switch>(u"Keep Trovell running after closing the main window"_qs);
    icon->click();
    QVERIFY(!keep->isChecked());
    QVERIFY(terminatesAfterLastWindowClosed(m_fixture->dependencies().defaults()));
    icon->click();
    QVERIFY(icon->isChecked() && !keep->isChecked());

    // The user's later choice stands until the icon goes again.
    icon->click();
    keep->click();
    preferences().setShowMenuBarItem(false);
    QVERIFY(preferences().keepRunningAfterClose());
}

void SettingsViewTest::showsWhatTheDesktopMadeOfTheLoginItem_data()
{
    QTest::addColumn<LoginItemStatus>("outcome");
    QTest::addColumn<QString>("failure");
    QTest::addColumn<bool>("isOn");
    QTest::newRow("enabled") << LoginItemStatus::enabled << QString() << true;
    QTest::newRow("kept off by the user")
        << LoginItemStatus::requiresApproval << QString() << false;
    QTest::newRow("failed") << LoginItemStatus::enabled << u"Autostart is locked."_qs << false;
}

void SettingsViewTest::showsWhatTheDesktopMadeOfTheLoginItem()
{
    QFETCH(LoginItemStatus, outcome);
    QFETCH(QString, failure);
    QFETCH(bool, isOn);
    m_fixture->loginItem->registered = outcome;
    if (!failure.isEmpty())
        m_fixture->loginItem->failure = failure;
    auto* control = named<Switch>(u"Launch Trovell at login"_qs);
    QTest::mouseClick(control, Qt::LeftButton);
    QCOMPARE(control->isChecked(), isOn);
    QCOMPARE(m_fixture->loginItem->registerCount, 1);
    QCOMPARE(m_fixture->loginItem->unregisterCount, 0);
    QCOMPARE(shows(u"Autostart is locked."_qs), !failure.isEmpty());

    // A success afterwards clears the line.
    m_fixture->loginItem->failure.reset();
    m_fixture->loginItem->registered = LoginItemStatus::enabled;
    control->setChecked(false);
    control->setChecked(true);
    QVERIFY(control->isChecked());
    QVERIFY(!shows(u"Autostart is locked."_qs));
}

void SettingsViewTest::picksTheLanguage()
{
    auto* picker = named<Picker>(u"Language"_qs);
    QCOMPARE(picker->currentText(), u"System Default"_qs);
    QTest::keyClick(picker, Qt::Key_Space);
    const auto menus = picker->findChildren<PopupMenu*>();
    QCOMPARE(menus.size(), 1);
    menus.first()->actions().at(3)->trigger();
    QCOMPARE(preferences().language(), AppLanguage::german);
    preferences().setLanguage(AppLanguage::japanese);
    QCOMPARE(picker->currentText(), u"日本語"_qs);
}

void SettingsViewTest::storesTheTimeout()
{
    auto* slider = named<Slider>(u"Workspace launch timeout"_qs);
    QVERIFY(shows(u"Current timeout: 10 seconds"_qs));
    QTest::mouseClick(slider, Qt::LeftButton, {},
                      QPoint(int(slider->positionOf(8)), slider->height() / 2));
    QCOMPARE(preferences().launchTimeout(), 8.0);
    QVERIFY(shows(u"Current timeout: 8 seconds"_qs));
    slider->setFocus();
    QTest::keyClick(slider, Qt::Key_Right);
    QCOMPARE(preferences().launchTimeout(), 9.0);
}

void SettingsViewTest::showsAnyStoredTimeout_data()
{
    QTest::addColumn<double>("seconds");
    QTest::addColumn<int>("position");
    QTest::addColumn<QString>("text");
    QTest::newRow("beyond") << 30.0 << 12 << u"Current timeout: 30 seconds"_qs;
    QTest::newRow("ungrouped") << 12345.0 << 12 << u"Current timeout: 12345 seconds"_qs;
    QTest::newRow("fraction") << 9.9 << 10 << u"Current timeout: 9 seconds"_qs;
    QTest::newRow("towards zero") << -2.7 << 8 << u"Current timeout: -2 seconds"_qs;
    QTest::newRow("no integer") << 1e19 << 12 << QString();
    QTest::newRow("not finite") << qInf() << 12 << QString();
    QTest::newRow("not a number") << qQNaN() << 8 << QString();
}

void SettingsViewTest::showsAnyStoredTimeout()
{
    QFETCH(double, seconds);
    QFETCH(int, position);
    QFETCH(QString, text);
    QSignalSpy writes(&preferences(), &AppPreferences::launchTimeoutChanged);
    preferences().setLaunchTimeout(seconds);
    QCOMPARE(named<Slider>(u"Workspace launch timeout"_qs)->value(), position);
    QCOMPARE(writes.size(), 1);
    if (!text.isEmpty())
        QVERIFY(shows(text));
    for (const QLabel* found : m_view->findChildren<QLabel*>())
        QVERIFY(!text.isEmpty() || !found->isVisible() ||
                !found->text().startsWith(u"Current timeout"_qs));
}

void SettingsViewTest::explainsWhyThereAreNoUpdates()
{
    m_view->showPage(SettingsView::Page::updates);
    const QString explanation =
        u"Update checks are disabled until a Sparkle appcast URL and EdDSA public key are configured."_qs;
    QVERIFY(shows(explanation));
    QVERIFY(!named<Switch>(u"Automatically check for updates"_qs)->isEnabled());
    m_fixture->dependencies().updateController().checkForUpdates();
    QVERIFY(shows(*m_fixture->dependencies().updateController().statusMessage()));
}

void SettingsViewTest::checksForUpdatesWhereTheyAreConfigured()
{
    m_view.reset();
    AppConfiguration configuration = appConfiguration();
    configuration.sparkleAppcastURL = QUrl(u"https://updates.example/feed.xml"_qs);
    configuration.sparklePublicKey = u"no key at all"_qs;
    m_fixture = std::make_unique<ViewFixture>(configuration);
    show();
    m_view->showPage(SettingsView::Page::updates);
    QVERIFY(!label(
        u"Update checks are disabled until a Sparkle appcast URL and EdDSA public key are configured."_qs));
    const Updater* updater = m_fixture->dependencies().updateController().controller();
    QSignalSpy checks(updater, &Updater::checkRequested);
    for (QPushButton* button : m_view->findChildren<QPushButton*>())
        if (button->text() == u"Check Now"_qs)
            QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(checks.size(), 1);
    QTest::mouseClick(named<Switch>(u"Automatically check for updates"_qs), Qt::LeftButton);
    QVERIFY(!preferences().automaticallyCheckForUpdates());
}

void SettingsViewTest::opensThePages()
{
    m_view->showPage(SettingsView::Page::about);
    for (SymbolLink* link : m_view->findChildren<SymbolLink*>())
        QTest::mouseClick(link, Qt::LeftButton);
    const AppConfiguration& pages = m_fixture->dependencies().configuration();
    QCOMPARE(m_fixture->resources->openedResources(),
             (QList<QUrl>{pages.privacyURL, pages.termsURL, pages.supportURL}));
}

void SettingsViewTest::turnsPagesByKeyboard()
{
    auto* tabs = m_view->findChild<SettingsTabBar*>();
    auto* pages = m_view->findChild<QStackedWidget*>();
    tabs->setFocus(Qt::TabFocusReason);
    QTest::keyClick(tabs, Qt::Key_Right);
    QCOMPARE(m_view->page(), SettingsView::Page::updates);
    QCOMPARE(pages->currentIndex(), 1);
    QTest::keyClick(tabs, Qt::Key_Left);
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(2).center());
    QCOMPARE(pages->currentIndex(), 2);
}

void SettingsViewTest::changesLanguageWhileItIsOpen_data()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("longer") << u"en-XA"_qs;
    QTest::newRow("from right to left") << u"ar-XB"_qs;
}

void SettingsViewTest::changesLanguageWhileItIsOpen()
{
    QFETCH(QString, language);
    m_fixture->environment().words.setLanguage(language);
    // The last two are those of the tab bar itself, which it never shows here.
    QStringList data{u"Trovell"_qs, u"Scroll Left"_qs, u"Scroll Right"_qs};
    for (const AppLanguage named : allLanguages().sliced(1))
        data += displayName(named);
    QCOMPARE(textsNotLookedUp(*m_view, data), QStringList());
    for (const auto page :
         {SettingsView::Page::general, SettingsView::Page::updates, SettingsView::Page::about}) {
        m_view->showPage(page);
        QCoreApplication::processEvents();
        QCOMPARE(clippedTexts(*m_view).join(u'\n'), QString());
    }
}

QTEST_MAIN(SettingsViewTest)
#include "SettingsViewTest.moc"
