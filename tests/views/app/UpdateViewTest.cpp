// The update window over the real updater and a real https server.
#include "views/app/UpdateView.h"
#include "support/TestAuthority.h"
#include "support/UpdateWorld.h"
#include "views/app/NotesArea.h"
#include "views/app/UpdateTexts.h"
#include "views/style/ProgressBar.h"
#include "views/support/ViewFixture.h"
#include "words/WidgetTexts.h"

using namespace trovell;
using namespace trovell::test;
using Phase = UpdateState::Phase;

class UpdateViewTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void leadsToTheInstaller();
    void closingEndsWhatRuns();
    void closingKeepsNothingThatWasNotInstalled();
    void offersToTryAgain();
    void isAsHighAsItsContent();
    void everyPhaseHasItsWords_data();
    void everyPhaseHasItsWords();

private:
    /// What assistive tools were last told.
    [[nodiscard]] QString announced() const
    {
        return m_view->findChildren<QLabel*>().first()->accessibleName();
    }
    [[nodiscard]] QPushButton* button(const QString& text) const
    {
        for (QPushButton* found : m_view->findChildren<QPushButton*>())
            if (found->isVisible() && found->text() == text)
                return found;
        return nullptr;
    }

    std::unique_ptr<TestAuthority> m_authority;
    std::unique_ptr<ViewFixture> m_fixture;
    std::unique_ptr<UpdateWorld> m_world;
    std::unique_ptr<Updater> m_updater;
    std::unique_ptr<UpdateView> m_view;
};

void UpdateViewTest::initTestCase()
{
    m_authority = std::make_unique<TestAuthority>();
}

void UpdateViewTest::init()
{
    m_fixture = std::make_unique<ViewFixture>();
    m_world = std::make_unique<UpdateWorld>(*m_authority,
                                            m_authority->serverConfiguration(u"IP:127.0.0.1"_qs));
    m_updater = m_world->makeUpdater();
    m_view = std::make_unique<UpdateView>(m_fixture->environment(), *m_updater);
    connect(m_updater.get(), &Updater::checkRequested, m_view.get(), &QWidget::show);
}

void UpdateViewTest::cleanup()
{
    m_view.reset();
    m_updater.reset();
    m_world.reset();
    m_fixture.reset();
}

void UpdateViewTest::leadsToTheInstaller()
{
    check(*m_updater);
    QVERIFY(announced().startsWith(u"Trovell 2.0 is available"_qs));
    // Markup in the notes is shown as it stands.
    QCOMPARE(m_view->findChild<NotesArea*>()->findChild<QLabel*>()->accessibleName(),
             u"What is <b>new</b>"_qs);
    QTest::keyClick(m_view.get(), Qt::Key_Return);
    QCOMPARE(m_updater->state().phase, Phase::downloading);
    QVERIFY(m_view->findChild<ProgressBar*>()->isVisible());
    wait(*m_updater);
    QCOMPARE(m_updater->state().phase, Phase::ready);
    QVERIFY(announced().startsWith(u"Trovell 2.0 is ready to install"_qs));
    QTest::mouseClick(button(u"Install"_qs), Qt::LeftButton);
    QCOMPARE(m_world->openedPackages.size(), 1);
    QTest::keyClick(m_view.get(), Qt::Key_Return);
    QVERIFY(!m_view->isVisible());
    QCOMPARE(m_world->files().size(), 1);
}

void UpdateViewTest::closingEndsWhatRuns()
{
    m_updater->check();
    QVERIFY(m_updater->isBusy());
    QTest::keyClick(m_view.get(), Qt::Key_Escape);
    QCOMPARE(m_updater->state(), UpdateState());
    QVERIFY(!m_view->isVisible());
    // No failure is told where the user ended it.
    QVERIFY(announced().startsWith(u"Checking for updates"_qs));
}

void UpdateViewTest::closingKeepsNothingThatWasNotInstalled()
{
    check(*m_updater);
    download(*m_updater);
    QCOMPARE(m_world->files().size(), 1);
    QTest::mouseClick(button(u"Later"_qs), Qt::LeftButton);
    QVERIFY(m_world->files().isEmpty());
}

void UpdateViewTest::offersToTryAgain()
{
    m_world->serveFeed({.status = 500});
    check(*m_updater);
    QVERIFY(m_view->findChildren<QLabel*>().at(1)->text() ==
            description(UpdateError::serverRefused));
    QVERIFY(button(u"Close"_qs));
    m_world->publish();
    QTest::mouseClick(button(u"Try Again"_qs), Qt::LeftButton);
    wait(*m_updater);
    QCOMPARE(m_updater->state().phase, Phase::available);
}

void UpdateViewTest::isAsHighAsItsContent()
{
    check(*m_updater);
    QTRY_COMPARE(m_view->width(), 480);
    const int brief = m_view->height();
    m_updater->dismiss();
    m_world->changeItem(&PublishedItem::notes, u"A line of notes.\n"_qs.repeated(200));
    check(*m_updater);
    QTRY_VERIFY(m_view->height() > brief);
    QVERIFY(m_view->height() < 480);
    QCOMPARE(clippedTexts(*m_view), QStringList());
}

void UpdateViewTest::everyPhaseHasItsWords_data()
{
    const AvailableUpdate update{u"2.0"_qs, {}, 45'200'000};
    QTest::addColumn<UpdateState>("state");
    QTest::newRow("checking") << UpdateState{.phase = Phase::checking};
    QTest::newRow("up to date") << UpdateState{
        .phase = Phase::upToDate, .sentence = u"You have the newest version of Trovell."_qs};
    QTest::newRow("available") << UpdateState{.phase = Phase::available, .update = update};
    QTest::newRow("downloading") << UpdateState{
        .phase = Phase::downloading, .update = update, .progress = 0.5};
    QTest::newRow("verifying") << UpdateState{.phase = Phase::verifying, .update = update};
    QTest::newRow("ready") << UpdateState{.phase = Phase::ready, .update = update};
    QTest::newRow("handed over") << UpdateState{
        .phase = Phase::ready, .update = update, .isHandedOver = true};
    QTest::newRow("failed") << UpdateState{.phase = Phase::failed,
                                           .sentence = description(UpdateError::diskFull),
                                           .error = UpdateError::diskFull};
}

void UpdateViewTest::everyPhaseHasItsWords()
{
    QFETCH(UpdateState, state);
    Localization& words = m_fixture->environment().words;
    words.setLanguage(u"en-XA"_qs);
    const UpdateTexts texts = updateTexts(state, words);
    QVERIFY(!texts.title.isEmpty());
    QVERIFY(!texts.close.isEmpty() || !texts.next.isEmpty());
    for (const QString& text : {texts.title, texts.text, texts.close, texts.next})
        QVERIFY2(text.isEmpty() || text.startsWith(u'⟦'), qPrintable(text));
}

QTEST_MAIN(UpdateViewTest)
#include "UpdateViewTest.moc"
