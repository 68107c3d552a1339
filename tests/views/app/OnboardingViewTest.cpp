// The guide of the first run, as a person goes through it, over the root of the main window.
#include "views/app/OnboardingView.h"
#include "app/PreferenceStore.h"
#include "views/app/PrivacyView.h"
#include "views/app/RootView.h"
#include "views/style/Alert.h"
#include "views/support/ViewFixture.h"
#include "words/WidgetTexts.h"

using namespace trovell;
using namespace trovell::test;
using Step = OnboardingView::Step;

namespace {

const QString completedKey = u"onboarding.completed"_qs;

/// The visible button with that text.
QPushButton* button(const QWidget& root, const QString& text)
{
    for (QPushButton* found : root.findChildren<QPushButton*>())
        if (found->isVisible() && found->text() == text)
            return found;
    return nullptr;
}

void click(const QWidget& root, const QString& text)
{
    QPushButton* found = button(root, text);
    QVERIFY2(found, qPrintable(text));
    QTest::mouseClick(found, Qt::LeftButton);
}

} // namespace

class OnboardingViewTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_fixture = std::make_unique<ViewFixture>();
        m_fixture->windows->trusted = false;
    }
    void cleanup() { m_fixture.reset(); }

    void isShownUntilItWasSeen_data();
    void isShownUntilItWasSeen();
    void skipsThePermissionOfWhoGrantedIt();
    void advancesByItselfWhenAccessIsGranted();
    void goesOnWithoutAccess();
    void looksAtThePermissionWheneverTheApplicationIsActive();
    void makesTheFirstWorkspace();
    void makesNoneWhereThereIsOne();
    void mayBeClosedOnTheWay();
    void triesAgainAfterAFailedSave();
    void explainsItsPrivacy();
    void hasRoomForOtherLanguages_data();
    void hasRoomForOtherLanguages();

private:
    /// The guide over a shown root.
    OnboardingView* openGuide();
    [[nodiscard]] bool isCompleted()
    {
        return m_fixture->dependencies().defaults().value(completedKey) == QJsonValue(true);
    }

    std::unique_ptr<ViewFixture> m_fixture;
    RootView* m_root = nullptr;
};

OnboardingView* OnboardingViewTest::openGuide()
{
    m_root = new RootView(m_fixture->environment());
    m_fixture->window().setCentralWidget(m_root);
    m_fixture->window().show();
    QCoreApplication::processEvents();
    return m_root->onboarding();
}

void OnboardingViewTest::isShownUntilItWasSeen_data()
{
    QTest::addColumn<QJsonValue>("stored");
    QTest::addColumn<bool>("isShown");
    QTest::newRow("nothing") << QJsonValue(QJsonValue::Undefined) << true;
    QTest::newRow("false") << QJsonValue(false) << true;
    QTest::newRow("true") << QJsonValue(true) << false;
    QTest::newRow("a text") << QJsonValue(u"true"_qs) << true;
    QTest::newRow("a number") << QJsonValue(1) << true;
}

void OnboardingViewTest::isShownUntilItWasSeen()
{
    QFETCH(QJsonValue, stored);
    QFETCH(bool, isShown);
    if (!stored.isUndefined())
        m_fixture->dependencies().defaults().setValue(completedKey, stored);
    QCOMPARE(openGuide() != nullptr, isShown);
    // A guide that goes away unclosed was not seen.
    m_fixture->window().setCentralWidget(new QWidget);
    QCOMPARE(isCompleted(), !isShown);
}

void OnboardingViewTest::skipsThePermissionOfWhoGrantedIt()
{
    OnboardingView* guide = openGuide();
    // Granted after the guide came: Continue has to look again.
    m_fixture->windows->trusted = true;
    click(*guide, u"Continue"_qs);
    QCOMPARE(guide->step(), Step::firstWorkspace);
    click(*guide, u"Back"_qs);
    QCOMPARE(guide->step(), Step::welcome);
}

void OnboardingViewTest::advancesByItselfWhenAccessIsGranted()
{
    OnboardingView* guide = openGuide();
    QTest::keyClick(guide, Qt::Key_Return);
    QCOMPARE(guide->step(), Step::permission);
    m_fixture->windows->trusted = true;
    click(*guide, u"Request Permission"_qs);
    QCOMPARE(guide->step(), Step::firstWorkspace);
    QCOMPARE(guide->focusWidget(), button(*guide, u"Create Workspace"_qs));
}

void OnboardingViewTest::goesOnWithoutAccess()
{
    OnboardingView* guide = openGuide();
    click(*guide, u"Continue"_qs);
    QVERIFY(!button(*guide, u"Continue"_qs));
    click(*guide, u"Continue Without Layout"_qs);
    QCOMPARE(guide->step(), Step::firstWorkspace);
    // Only the page itself has a way forward.
    QVERIFY(!button(*guide, u"Continue"_qs) && !button(*guide, u"Continue Without Layout"_qs));
    click(*guide, u"Back"_qs);
    QCOMPARE(guide->step(), Step::permission);
    click(*guide, u"Back"_qs);
    QCOMPARE(guide->step(), Step::welcome);
}

void OnboardingViewTest::looksAtThePermissionWheneverTheApplicationIsActive()
{
    OnboardingView* guide = openGuide();
    click(*guide, u"Continue"_qs);
    m_fixture->windows->trusted = true;
    Q_EMIT qGuiApp->applicationStateChanged(Qt::ApplicationInactive);
    QCOMPARE(guide->step(), Step::permission);
    Q_EMIT qGuiApp->applicationStateChanged(Qt::ApplicationActive);
    QCOMPARE(guide->step(), Step::firstWorkspace);
}

void OnboardingViewTest::makesTheFirstWorkspace()
{
    m_fixture->windows->trusted = true;
    QPointer<OnboardingView> guide = openGuide();
    QTest::keyClick(guide, Qt::Key_Return);
    QTest::keyClick(button(*guide, u"Create Workspace"_qs), Qt::Key_Return);
    QTRY_VERIFY(!guide);
    QVERIFY(isCompleted());
    const auto workspaces = m_fixture->context().workspaces();
    QCOMPARE(workspaces.size(), 1);
    const TrovellWorkspace& made = *workspaces.first();
    QCOMPARE(made.name(), u"My Workspace"_qs);
    QCOMPARE(made.symbolName(), u"rectangle.3.group"_qs);
    QCOMPARE(made.accentIdentifier(), u"blue"_qs);
    QCOMPARE(made.sortOrder(), 0);
    QVERIFY(!made.shortcut() && !made.lastLaunchedAt() && made.itemCount() == 0);
    QVERIFY(!m_fixture->context().hasChanges());
}

void OnboardingViewTest::makesNoneWhereThereIsOne()
{
    m_fixture->windows->trusted = true;
    QPointer<OnboardingView> guide = openGuide();
    click(*guide, u"Continue"_qs);
    QVERIFY(button(*guide, u"Create Workspace"_qs));
    m_fixture->addWorkspace(u"Work"_qs);
    QTRY_VERIFY(button(*guide, u"Open Trovell"_qs));
    click(*guide, u"Open Trovell"_qs);
    QVERIFY(isCompleted());
    QCOMPARE(m_fixture->context().workspaces().size(), 1);
}

void OnboardingViewTest::mayBeClosedOnTheWay()
{
    QPointer<OnboardingView> guide = openGuide();
    QTest::keyClick(guide, Qt::Key_Escape);
    QTRY_VERIFY(!guide);
    QVERIFY(isCompleted());
    QVERIFY(m_fixture->context().workspaces().isEmpty());
    m_fixture->window().hide();
    m_fixture->window().show();
    QCoreApplication::processEvents();
    QVERIFY(!m_root->onboarding());
}

void OnboardingViewTest::triesAgainAfterAFailedSave()
{
    m_fixture->windows->trusted = true;
    QPointer<OnboardingView> guide = openGuide();
    click(*guide, u"Continue"_qs);
    m_fixture->refuseSaving();
    click(*guide, u"Create Workspace"_qs);
    auto* alert = guide->findChild<Alert*>();
    QVERIFY(alert && alert->isVisible());
    QCOMPARE(alert->accessibleName(), u"Workspace Could Not Be Saved"_qs);
    QVERIFY(!alert->accessibleDescription().isEmpty());
    click(*alert, u"OK"_qs);
    QCOMPARE(guide->step(), Step::firstWorkspace);
    QVERIFY(!isCompleted());
    QVERIFY(m_fixture->context().workspaces().isEmpty());

    m_fixture->allowSaving();
    click(*guide, u"Create Workspace"_qs);
    QVERIFY(isCompleted());
    QCOMPARE(m_fixture->context().workspaces().size(), 1);
}

void OnboardingViewTest::explainsItsPrivacy()
{
    OnboardingView* guide = openGuide();
    click(*guide, u"Continue"_qs);
    click(*guide, u"Read the privacy explanation"_qs);
    auto* privacy = guide->findChild<PrivacyView*>();
    QVERIFY(privacy && privacy->isVisible());
    QTest::keyClick(privacy, Qt::Key_Escape);
    QVERIFY(!privacy->isVisible());
    QVERIFY(guide->isVisible());
    QCOMPARE(guide->step(), Step::permission);
}

void OnboardingViewTest::hasRoomForOtherLanguages_data()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("longer") << u"en-XA"_qs;
    QTest::newRow("from right to left") << u"ar-XB"_qs;
}

void OnboardingViewTest::hasRoomForOtherLanguages()
{
    QFETCH(QString, language);
    const ViewEnvironment& environment = m_fixture->environment();
    OnboardingView* guide = openGuide();
    environment.words.setLanguage(language);
    for (const Step step : {Step::welcome, Step::permission, Step::firstWorkspace}) {
        QCOMPARE(guide->step(), step);
        QCoreApplication::processEvents();
        QCOMPARE(clippedTexts(*guide), QStringList());
        // Next to the last edge in reading direction stands the way forward.
        if (step != Step::firstWorkspace)
            QTest::mouseClick(guide->findChildren<QPushButton*>().last(), Qt::LeftButton);
    }
    QCOMPARE(textsNotLookedUp(*guide), QStringList());
    auto* privacy = new PrivacyView(environment, guide);
    privacy->open();
    QCoreApplication::processEvents();
    QCOMPARE(clippedTexts(*privacy), QStringList());
    QCOMPARE(textsNotLookedUp(*privacy), QStringList());
}

QTEST_MAIN(OnboardingViewTest)
#include "OnboardingViewTest.moc"
