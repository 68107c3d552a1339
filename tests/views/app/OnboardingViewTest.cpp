// SPDX-License-Identifier: MIT
//
// The guide of the first run, as a person goes through it, over the root of the main window.
#include "views/app/OnboardingView.h"
#include "preferences/PreferenceStore.h"
#include "support/Patience.h"
#include "views/app/PrivacyView.h"
#include "views/app/RootView.h"
#include "views/support/Controls.h"
#include "views/support/ViewFixture.h"

using namespace Qt::StringLiterals;

using namespace trovell;
using namespace trovell::test;
using Step = OnboardingView::Step;

namespace {

const QString completedKey = u"onboarding.completed"_s;

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

    void isShownUntilItWasSeen()
    {
        for (const QJsonValue& stored : {QJsonValue(), QJsonValue(false), QJsonValue(u"true"_s),
                                         QJsonValue(1), QJsonValue(true)}) {
            init();
            if (!stored.isNull())
                m_fixture->dependencies().defaults().setValue(completedKey, stored);
            open();
            QCOMPARE(!m_guide, stored == QJsonValue(true));
            // A guide that goes away unclosed was not seen.
            m_fixture->window().setCentralWidget(new QWidget);
            QCOMPARE(isCompleted(), stored == QJsonValue(true));
        }
    }

    void advancesByItselfWhenAccessIsGranted()
    {
        for (const bool isGrantedElsewhere : {false, true}) {
            init();
            open();
            QTest::keyClick(m_guide, Qt::Key_Return);
            QCOMPARE(m_guide->step(), Step::permission);
            m_fixture->windows->trusted = true;
            if (isGrantedElsewhere)
                Q_EMIT qGuiApp->applicationStateChanged(Qt::ApplicationActive);
            else
                click(*m_guide, u"Request Permission"_s);
            QCOMPARE(m_guide->step(), Step::firstWorkspace);
            QCOMPARE(m_guide->focusWidget(), find(*m_guide, u"Create Workspace"_s));
        }
    }

    void goesOnWithoutAccess()
    {
        open();
        click(*m_guide, u"Continue"_s);
        QVERIFY(!find(*m_guide, u"Continue"_s));
        click(*m_guide, u"Continue Without Layout"_s);
        QCOMPARE(m_guide->step(), Step::firstWorkspace);
        // Only the page itself has a way forward.
        QVERIFY(!find(*m_guide, u"Continue"_s) && !find(*m_guide, u"Continue Without Layout"_s));
        click(*m_guide, u"Back"_s);
        QCOMPARE(m_guide->step(), Step::permission);
        click(*m_guide, u"Back"_s);
        QCOMPARE(m_guide->step(), Step::welcome);
        // Granted after the guide came: Continue has to look again.
        m_fixture->windows->trusted = true;
        click(*m_guide, u"Continue"_s);
        QCOMPARE(m_guide->step(), Step::firstWorkspace);
        click(*m_guide, u"Back"_s);
        QCOMPARE(m_guide->step(), Step::welcome);
    }

    void makesNoneWhereThereIsOne()
    {
        m_fixture->windows->trusted = true;
        open();
        click(*m_guide, u"Continue"_s);
        QVERIFY(find(*m_guide, u"Create Workspace"_s));
        m_fixture->addWorkspace(u"Work"_s);
        QTRY_VERIFY(find(*m_guide, u"Open Trovell"_s));
        click(*m_guide, u"Open Trovell"_s);
        QVERIFY(isCompleted());
        QCOMPARE(workspaces().size(), 1);
    }

    void mayBeClosedOnTheWay()
    {
        open();
        QTest::keyClick(m_guide, Qt::Key_Escape);
        QTRY_VERIFY(!m_guide);
        QVERIFY(isCompleted() && workspaces().isEmpty());
    }

    void makesTheFirstWorkspaceAlsoAfterAFailedSave()
    {
        m_fixture->windows->trusted = true;
        open();
        QTest::keyClick(m_guide, Qt::Key_Return);
        m_fixture->refuseSaving();
        click(*m_guide, u"Create Workspace"_s);
        QCOMPARE(answeredAlert(*m_guide),
                 QStringList({u"Workspace Could Not Be Saved"_s,
                              description(StoreError::diskFull).productText()}));
        QCOMPARE(m_guide->step(), Step::firstWorkspace);
        QVERIFY(!isCompleted() && workspaces().isEmpty());

        m_fixture->allowSaving();
        QTest::keyClick(find(*m_guide, u"Create Workspace"_s), Qt::Key_Return);
        QTRY_VERIFY(!m_guide);
        QVERIFY(isCompleted() && !m_fixture->context().hasChanges());
        QCOMPARE(workspaces().size(), 1);
        const TrovellWorkspace& made = *workspaces().first();
        QCOMPARE(made.name(), u"My Workspace"_s);
        QCOMPARE(made.symbolName(), u"rectangle.3.group"_s);
        QCOMPARE(made.accentIdentifier(), u"blue"_s);
        QVERIFY(!made.shortcut() && !made.lastLaunchedAt() && made.itemCount() == 0);
    }

    void hasRoomForOtherLanguages()
    {
        open();
        Localization& words = m_fixture->environment().words;
        QCOMPARE(languageProblems(*m_guide, words), QString());
        click(*m_guide, u"Continue"_s);
        QCOMPARE(languageProblems(*m_guide, words), QString());
        click(*m_guide, u"Read the privacy explanation"_s);
        auto* privacy = sheetOver<PrivacyView>(*m_guide);
        QCOMPARE(languageProblems(*privacy, words), QString());
        QTest::keyClick(privacy, Qt::Key_Escape);
        QVERIFY(!privacy->isVisible());
        click(*m_guide, u"Continue Without Layout"_s);
        QCOMPARE(m_guide->step(), Step::firstWorkspace);
        QCOMPARE(languageProblems(*m_guide, words), QString());
    }

private:
    /// Shows the guide over a root.
    void open()
    {
        auto* root = new RootView(m_fixture->environment(), m_fixture->dependencies().defaults());
        m_fixture->window().setCentralWidget(root);
        m_fixture->window().show();
        QCoreApplication::processEvents();
        m_guide = root->onboarding();
    }

    [[nodiscard]] bool isCompleted()
    {
        return m_fixture->dependencies().defaults().value(completedKey) == QJsonValue(true);
    }
    [[nodiscard]] QList<TrovellWorkspace*> workspaces()
    {
        return m_fixture->context().workspaces();
    }

    std::unique_ptr<ViewFixture> m_fixture;
    QPointer<OnboardingView> m_guide;
};

QTEST_MAIN(OnboardingViewTest)
#include "OnboardingViewTest.moc"
