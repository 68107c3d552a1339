// SPDX-License-Identifier: MIT

#include "views/capture/WorkspaceCaptureView.h"

#include "support/Patience.h"
#include "support/StoreContents.h"
#include "views/style/Switch.h"
#include "views/support/Controls.h"
#include "views/support/ViewFixture.h"

using namespace Qt::StringLiterals;

using namespace trovell;
using namespace trovell::test;
using Kind = CaptureLoadState::Kind;

namespace {

/// An open sheet over the fixture's window.
struct OpenSheet {
    OpenSheet(ViewFixture& fixture, CapturePurpose purpose, TrovellWorkspace* workspace = nullptr)
    {
        fixture.window().show();
        view =
            new WorkspaceCaptureView(fixture.environment(), purpose, workspace, &fixture.window());
        QObject::connect(view, &WorkspaceCaptureView::saved, view,
                         [this](TrovellWorkspace* result, const Message& message) {
                             saved = result;
                             notice = message.productText();
                         });
        view->open();
    }
    ~OpenSheet() { delete view; }

    bool reaches(Kind kind) const
    {
        return QTest::qWaitFor([&] { return view && view->loadState().kind == kind; }, patience);
    }
    bool shows(const QString& text) const { return find<QLabel>(*view, text) != nullptr; }

    QPointer<WorkspaceCaptureView> view;
    QPointer<TrovellWorkspace> saved;
    QString notice;
};

} // namespace

class WorkspaceCaptureViewTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_fixture = std::make_unique<ViewFixture>();
        m_work = &m_fixture->addWorkspace(u"Work"_s);
    }
    void cleanup() { m_fixture.reset(); }

    void createsAWorkspace()
    {
        openDraft();
        m_fixture->windows->addWindow(u"editor"_s, {.title = {}});
        {
            // It may be closed while it reads.
            const OpenSheet other(*m_fixture, CapturePurpose::create);
            QCOMPARE(other.view->loadState().kind, Kind::loading);
            click(*other.view, u"Cancel"_s);
            QTRY_VERIFY(!other.view);
        }
        const OpenSheet sheet(*m_fixture, CapturePurpose::create);
        QVERIFY(sheet.reaches(Kind::loaded));
        auto* name = sheet.view->findChild<QLineEdit*>();
        QCOMPARE(sheet.view->focusWidget(), name);
        QVERIFY(!find(*sheet.view, u"Save Workspace"_s)->isEnabled());
        QTest::keyClicks(name, u"Music"_s);
        QTest::mouseClick(find<QLabel>(*sheet.view, u"Untitled Window"_s), Qt::LeftButton);
        QVERIFY(sheet.shows(u"1 windows selected • 0 previous positions kept"_s));
        QTest::keyClick(name, Qt::Key_Return);
        QVERIFY(sheet.saved);
        QVERIFY(!sheet.view || !sheet.view->isVisible());
        QCOMPARE(sheet.notice, u"Music captured."_s);
        QCOMPARE(sheet.saved->placementCount(), 1);
        QCOMPARE(sheet.saved->itemCount(), 1);
    }

    void capturesOnceAccessIsGranted()
    {
        openDraft();
        m_fixture->setTrusted(false);
        const OpenSheet sheet(*m_fixture, CapturePurpose::saveAsNew, m_work);
        QCOMPARE(sheet.view->loadState().kind, Kind::idle);
        QVERIFY(!find(*sheet.view, u"Continue with Apps Only"_s));
        click(*sheet.view, u"Request Access"_s);
        m_fixture->windows->trusted = true;
        m_fixture->clock.advance(std::chrono::seconds(1));
        QVERIFY(sheet.reaches(Kind::loaded));
        QCOMPARE(m_fixture->windows->readCount(), 1);
        QVERIFY(find(*sheet.view, u"Draft"_s));
    }

    void goesOnWithApplicationsOnly()
    {
        m_fixture->setTrusted(false);
        const OpenSheet sheet(*m_fixture, CapturePurpose::create);
        click(*sheet.view, u"Continue with Apps Only"_s);
        QVERIFY(sheet.reaches(Kind::failed));
        QVERIFY(sheet.shows(u"No visible user applications were available to save."_s));
        openDraft();
        click(*sheet.view, u"Try Again"_s);
        click(*sheet.view, u"Continue with Apps Only"_s);
        QVERIFY(sheet.reaches(Kind::loaded));
        QVERIFY(sheet.shows(u"1 applications will be saved."_s));

        m_fixture->setTrusted(true);
        QVERIFY(sheet.reaches(Kind::loading));
        QVERIFY(!find(*sheet.view, u"Save Workspace"_s));
        QVERIFY(sheet.reaches(Kind::loaded));
        QVERIFY(find(*sheet.view, u"Draft"_s));
    }

    void removesAPositionByKeyboard()
    {
        m_fixture->addPlacement(*m_work, u"editor"_s);
        m_fixture->addPlacement(*m_work, u"browser"_s);
        const OpenSheet sheet(*m_fixture, CapturePurpose::update, m_work);
        QVERIFY(sheet.reaches(Kind::loaded));
        QVERIFY(sheet.shows(u"No workspace application windows are open"_s));
        auto* kept = find<Switch>(*sheet.view, u"Keep saved position for editor"_s);
        QTest::keyClick(kept, Qt::Key_Space);
        QVERIFY(sheet.shows(u"Remove position"_s));
        QTest::keyClick(kept, Qt::Key_Return);
        QCOMPARE(sheet.saved, m_work);
        QCOMPARE(m_work->placementCount(), 1);
    }

    void staysOpenWhenSavingFails()
    {
        const OpenSheet sheet(*m_fixture, CapturePurpose::update, m_work);
        QVERIFY(sheet.reaches(Kind::loaded));
        m_fixture->refuseSaving();
        click(*sheet.view, u"Save Layout"_s);
        QCOMPARE(answeredAlert(*sheet.view),
                 QStringList({u"Workspace Could Not Be Saved"_s,
                              description(StoreError::diskFull).productText()}));
        QVERIFY(!sheet.saved);
        m_fixture->allowSaving();
        click(*sheet.view, u"Save Layout"_s);
        QCOMPARE(sheet.notice, u"Work layout updated."_s);
    }

    void outlivesItsWorkspace()
    {
        const OpenSheet sheet(*m_fixture, CapturePurpose::update, m_work);
        QVERIFY(sheet.reaches(Kind::loaded));
        m_fixture->context().remove(*m_work);
        m_fixture->save();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        click(*sheet.view, u"Save Layout"_s);
        QVERIFY(!answeredAlert(*sheet.view).isEmpty());
        QVERIFY(m_fixture->context().workspaces().isEmpty());
    }

    void leavesRoomForOtherLanguages()
    {
        m_fixture->addItem(*m_work, WorkspaceItemType::application, u"editor"_s);
        m_fixture->addPlacement(*m_work, u"closed"_s);
        m_fixture->windows->addWindow(u"editor"_s, {.title = {}});
        QStringList data{u"editor"_s, u"closed"_s, u"closed window"_s};
        data += symbols() + accents();
        const auto problems = [&](const OpenSheet& sheet) {
            return languageProblems(*sheet.view, m_fixture->environment().words, data);
        };
        for (const auto purpose : {CapturePurpose::create, CapturePurpose::update}) {
            m_fixture->setTrusted(true);
            const OpenSheet loaded(*m_fixture, purpose, m_work);
            QVERIFY(loaded.reaches(Kind::loaded));
            QCOMPARE(problems(loaded), QString());
            m_fixture->setTrusted(false);
            const OpenSheet asking(*m_fixture, purpose, m_work);
            QCOMPARE(problems(asking), QString());
            if (purpose == CapturePurpose::create) {
                click(*asking.view, u"Continue with Apps Only"_s);
                QVERIFY(asking.reaches(Kind::loaded));
                QCOMPARE(problems(asking), QString());
            }
        }
    }

private:
    void openDraft() { m_fixture->windows->addWindow(u"editor"_s, {.title = u"Draft"_s}); }

    std::unique_ptr<ViewFixture> m_fixture;
    TrovellWorkspace* m_work = nullptr;
};

QTEST_MAIN(WorkspaceCaptureViewTest)
#include "WorkspaceCaptureViewTest.moc"
