// SPDX-License-Identifier: MIT
//
// The update window over the real updater and a real https server.
#include "views/app/UpdateView.h"
#include "support/TestAuthority.h"
#include "support/UpdateWorld.h"
#include "views/app/NotesArea.h"
#include "views/app/UpdateTexts.h"
#include "views/support/Controls.h"
#include "views/support/ViewFixture.h"

using namespace Qt::StringLiterals;

using namespace trovell;
using namespace trovell::test;
using Phase = UpdateState::Phase;

class UpdateViewTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_authority = std::make_unique<TestAuthority>(); }
    void init()
    {
        m_fixture = std::make_unique<ViewFixture>();
        m_world = std::make_unique<UpdateWorld>(
            *m_authority, m_authority->serverConfiguration(u"IP:127.0.0.1"_s));
        m_updater = m_world->makeUpdater();
        m_view = std::make_unique<UpdateView>(m_fixture->environment(), *m_updater);
        connect(m_updater.get(), &Updater::checkRequested, m_view.get(), &QWidget::show);
    }

    void cleanup()
    {
        m_view.reset();
        m_updater.reset();
        m_world.reset();
        m_fixture.reset();
    }

    void leadsToTheInstaller()
    {
        check(*m_updater);
        QVERIFY(announced().startsWith(u"Trovell 2.0 is available"_s));
        QCOMPARE(clippedTexts(*m_view), QStringList());
        // Markup in the notes is shown as it stands.
        QCOMPARE(m_view->findChild<NotesArea*>()->findChild<QLabel*>()->accessibleName(),
                 u"What is <b>new</b>"_s);
        QTest::keyClick(m_view.get(), Qt::Key_Return);
        QCOMPARE(m_updater->state().phase, Phase::downloading);
        QVERIFY(m_view->findChild<QProgressBar*>()->isVisible());
        wait(*m_updater);
        QCOMPARE(m_updater->state().phase, Phase::ready);
        QVERIFY(announced().startsWith(u"Trovell 2.0 is ready to install"_s));
        click(*m_view, u"Install"_s);
        QCOMPARE(m_world->openedPackages.size(), 1);
        QTest::keyClick(m_view.get(), Qt::Key_Return);
        QVERIFY(!m_view->isVisible());
        QCOMPARE(m_world->files().size(), 1);
    }

    void closingEndsWhatRuns()
    {
        m_updater->check();
        QVERIFY(m_updater->isBusy());
        QTest::keyClick(m_view.get(), Qt::Key_Escape);
        QCOMPARE(m_updater->state(), UpdateState());
        QVERIFY(!m_view->isVisible());
        // No failure is told where the user ended it.
        QVERIFY(announced().startsWith(u"Checking for updates"_s));
    }

    void closingKeepsNothingThatWasNotInstalled()
    {
        check(*m_updater);
        download(*m_updater);
        QCOMPARE(m_world->files().size(), 1);
        click(*m_view, u"Later"_s);
        QVERIFY(m_world->files().isEmpty());
    }

    void offersToTryAgain()
    {
        m_world->serveFeed({.status = 500});
        check(*m_updater);
        QVERIFY(find<QLabel>(*m_view, description(UpdateError::serverRefused).productText()));
        QVERIFY(find(*m_view, u"Close"_s));
        m_world->publish();
        click(*m_view, u"Try Again"_s);
        wait(*m_updater);
        QCOMPARE(m_updater->state().phase, Phase::available);
    }

    void everyPhaseHasItsWords()
    {
        Localization& words = m_fixture->environment().words;
        words.setLanguage(u"en-XA"_s);
        UpdateState state{.update = {u"2.0"_s, {}, 45'200'000}, .error = UpdateError::diskFull};
        for (const auto phase :
             {Phase::checking, Phase::upToDate, Phase::available, Phase::downloading,
              Phase::verifying, Phase::ready, Phase::failed}) {
            state.phase = phase;
            state.reason = description(UpdateError::diskFull);
            for (const bool isHandedOver : {false, true}) {
                state.isHandedOver = isHandedOver;
                const UpdateTexts texts = updateTexts(state, words);
                QVERIFY(!texts.title.isEmpty());
                QVERIFY(!texts.close.isEmpty() || !texts.next.isEmpty());
                for (const QString& text : {texts.title, texts.text, texts.close, texts.next})
                    QVERIFY2(text.isEmpty() || text.startsWith(u'⟦'), qPrintable(text));
            }
        }
    }

private:
    /// What assistive tools were last told.
    [[nodiscard]] QString announced() const
    {
        return m_view->findChildren<QLabel*>().first()->accessibleName();
    }

    std::unique_ptr<TestAuthority> m_authority;
    std::unique_ptr<ViewFixture> m_fixture;
    std::unique_ptr<UpdateWorld> m_world;
    std::unique_ptr<Updater> m_updater;
    std::unique_ptr<UpdateView> m_view;
};

QTEST_MAIN(UpdateViewTest)
#include "UpdateViewTest.moc"
