#include "views/workspace/WorkspaceCaptureView.h"

#include "support/StoreContents.h"
#include "views/style/Alert.h"
#include "views/style/CheckBox.h"
#include "views/style/Picture.h"
#include "views/style/Switch.h"
#include "views/support/Controls.h"
#include "views/support/ViewFixture.h"
#include "views/workspace/EditorCaptureReviewView.h"
#include "words/WidgetTexts.h"

#include <QAccessible>

using namespace trovell;
using namespace trovell::test;

namespace {

void press(QWidget* widget, Qt::Key key)
{
    QVERIFY(widget);
    widget->setFocus(Qt::TabFocusReason);
    QTest::keyClick(widget, key);
}

void setTrusted(ViewFixture& fixture, bool isTrusted)
{
    fixture.windows->trusted = isTrusted;
    fixture.dependencies().accessibility().refresh();
}

/// An open sheet over the fixture's window.
struct OpenSheet {
    OpenSheet(ViewFixture& fixture, CapturePurpose purpose, TrovellWorkspace* workspace = nullptr)
    {
        fixture.window().show();
        view =
            new WorkspaceCaptureView(fixture.environment(), purpose, workspace, &fixture.window());
        QObject::connect(view, &WorkspaceCaptureView::saved, view,
                         [this](TrovellWorkspace* result, const QString& text) {
                             saved = result;
                             notice = text;
                             wasOpen = view->isVisible();
                         });
        view->open();
    }
    ~OpenSheet() { delete view; }

    bool reaches(CaptureLoadState::Kind kind) const
    {
        return QTest::qWaitFor([&] { return view && view->loadState().kind == kind; });
    }
    QAbstractButton* button(const QString& text) const
    {
        return find<QAbstractButton>(*view, text);
    }

    QPointer<WorkspaceCaptureView> view;
    QPointer<TrovellWorkspace> saved;
    QString notice;
    bool wasOpen = false;
};

using Kind = CaptureLoadState::Kind;

} // namespace

class WorkspaceCaptureViewTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void createsAWorkspace();
    void capturesOnceAccessIsGranted();
    void goesOnWithApplicationsOnly();
    void triesAgainAfterAFailure();
    void switchesByKeyboard();
    void staysOpenWhenSavingFails();
    void outlivesItsWorkspace();
    void canBeClosedWhileItReads();
    void showsLongLists();
    void reviewsACapture();
    void leavesRoomForOtherLanguages_data();
    void leavesRoomForOtherLanguages();
};

void WorkspaceCaptureViewTest::createsAWorkspace()
{
    ViewFixture fixture;
    fixture.windows->addWindow(u"editor"_qs, {.title = u"Draft"_qs});
    fixture.windows->addWindow(u"editor"_qs, {.title = {}});
    OpenSheet sheet(fixture, CapturePurpose::create);
    QCOMPARE(sheet.view->loadState().kind, Kind::loading);
    QVERIFY(sheet.button(u"Cancel"_qs));
    QVERIFY(sheet.reaches(Kind::loaded));
    auto* name = sheet.view->findChild<QLineEdit*>();
    QCOMPARE(sheet.view->focusWidget(), name);
    QVERIFY(!sheet.button(u"Save Workspace"_qs)->isEnabled());
    QTest::keyClicks(name, u"Music"_qs);
    QTest::mouseClick(find<QLabel>(*sheet.view, u"Untitled Window"_qs), Qt::LeftButton);
    QVERIFY(find<QLabel>(*sheet.view, u"1 windows selected • 0 previous positions kept"_qs));
    QTest::keyClick(name, Qt::Key_Return);
    QVERIFY(sheet.saved);
    QVERIFY(sheet.wasOpen);
    QVERIFY(!sheet.view || !sheet.view->isVisible());
    QCOMPARE(sheet.notice, u"Music captured."_qs);
    QCOMPARE(sheet.saved->placementCount(), 1);
    QCOMPARE(sheet.saved->itemCount(), 1);
}

void WorkspaceCaptureViewTest::capturesOnceAccessIsGranted()
{
    ViewFixture fixture;
    fixture.windows->addWindow(u"editor"_qs, {.title = u"Draft"_qs});
    setTrusted(fixture, false);
    OpenSheet sheet(fixture, CapturePurpose::saveAsNew, &fixture.addWorkspace(u"Work"_qs));
    QCOMPARE(sheet.view->loadState().kind, Kind::idle);
    QVERIFY(!sheet.button(u"Continue with Apps Only"_qs));
    click(*sheet.view, u"Request Access"_qs);
    fixture.windows->trusted = true;
    fixture.clock.advance(std::chrono::seconds(1));
    QVERIFY(sheet.reaches(Kind::loaded));
    QCOMPARE(fixture.windows->readCount(), 1);
    QVERIFY(sheet.button(u"Draft"_qs));
}

void WorkspaceCaptureViewTest::goesOnWithApplicationsOnly()
{
    ViewFixture fixture;
    setTrusted(fixture, false);
    OpenSheet sheet(fixture, CapturePurpose::create);
    click(*sheet.view, u"Continue with Apps Only"_qs);
    QVERIFY(sheet.reaches(Kind::failed));
    QVERIFY(find<QLabel>(*sheet.view, u"No visible user applications were available to save."_qs));
    fixture.windows->addWindow(u"editor"_qs, {.title = u"Draft"_qs});
    click(*sheet.view, u"Try Again"_qs);
    click(*sheet.view, u"Continue with Apps Only"_qs);
    QVERIFY(sheet.reaches(Kind::loaded));
    QVERIFY(find<QLabel>(*sheet.view, u"1 applications will be saved."_qs));
    QVERIFY(find<QLabel>(*sheet.view, u"Application launch item"_qs));

    setTrusted(fixture, true);
    QVERIFY(sheet.reaches(Kind::loading));
    QVERIFY(!sheet.button(u"Save Workspace"_qs));
    QVERIFY(sheet.reaches(Kind::loaded));
    QVERIFY(sheet.button(u"Draft"_qs));
}

void WorkspaceCaptureViewTest::triesAgainAfterAFailure()
{
    ViewFixture fixture;
    OpenSheet sheet(fixture, CapturePurpose::create);
    QVERIFY(sheet.reaches(Kind::failed));
    QVERIFY(find<QLabel>(*sheet.view,
                         u"No ordinary application windows were available to capture."_qs));
    fixture.windows->addWindow(u"editor"_qs, {.title = u"Draft"_qs});
    press(sheet.button(u"Try Again"_qs), Qt::Key_Return);
    QVERIFY(sheet.reaches(Kind::loaded));
}

void WorkspaceCaptureViewTest::switchesByKeyboard()
{
    ViewFixture fixture;
    TrovellWorkspace& workspace = fixture.addWorkspace(u"Work"_qs);
    fixture.addPlacement(workspace, u"editor"_qs);
    fixture.addPlacement(workspace, u"browser"_qs);
    OpenSheet sheet(fixture, CapturePurpose::update, &workspace);
    QVERIFY(sheet.reaches(Kind::loaded));
    QVERIFY(find<QLabel>(*sheet.view, u"No workspace application windows are open"_qs));
    auto* kept = find<Switch>(*sheet.view, u"Keep saved position for editor"_qs);
    press(kept, Qt::Key_Space);
    QVERIFY(find<QLabel>(*sheet.view, u"Remove position"_qs));
    QTest::keyClick(kept, Qt::Key_Return);
    QCOMPARE(sheet.saved, &workspace);
    QCOMPARE(workspace.placementCount(), 1);
}

void WorkspaceCaptureViewTest::staysOpenWhenSavingFails()
{
    ViewFixture fixture;
    TrovellWorkspace& workspace = fixture.addWorkspace(u"Work"_qs);
    fixture.addItem(workspace, WorkspaceItemType::application, u"editor"_qs);
    fixture.addPlacement(workspace, u"editor"_qs);
    fixture.windows->addWindow(u"editor"_qs, {.title = u"Draft"_qs});
    const StoreContents before = contentsOf(fixture.context());
    OpenSheet sheet(fixture, CapturePurpose::update, &workspace);
    QVERIFY(sheet.reaches(Kind::loaded));
    fixture.refuseSaving();
    click(*sheet.view, u"Save Layout"_qs);
    Alert* alert = sheetOver<Alert>(*sheet.view);
    QVERIFY(alert);
    QCOMPARE(alert->accessibleDescription(), description(StoreError::diskFull));
    QCOMPARE(contentsOf(fixture.context()), before);
    QTest::keyClick(alert, Qt::Key_Escape);
    QVERIFY(!sheet.saved);
    fixture.allowSaving();
    click(*sheet.view, u"Save Layout"_qs);
    QCOMPARE(sheet.notice, u"Work layout updated."_qs);
}

void WorkspaceCaptureViewTest::outlivesItsWorkspace()
{
    ViewFixture fixture;
    TrovellWorkspace& workspace = fixture.addWorkspace(u"Work"_qs);
    fixture.addPlacement(workspace, u"editor"_qs);
    OpenSheet sheet(fixture, CapturePurpose::update, &workspace);
    QVERIFY(sheet.reaches(Kind::loaded));
    fixture.context().remove(workspace);
    QVERIFY(fixture.context().save());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    click(*sheet.view, u"Save Layout"_qs);
    QVERIFY(sheetOver<Alert>(*sheet.view));
    QVERIFY(fixture.context().workspaces().isEmpty());
}

void WorkspaceCaptureViewTest::canBeClosedWhileItReads()
{
    ViewFixture fixture;
    fixture.windows->addWindow(u"editor"_qs, {.title = u"Draft"_qs});
    {
        OpenSheet sheet(fixture, CapturePurpose::create);
        QTest::keyClick(sheet.view, Qt::Key_Escape);
        QTRY_VERIFY(!sheet.view);
    }
    QTRY_COMPARE(fixture.windows->readCount(), 1);
    QTest::qWait(20);
}

void WorkspaceCaptureViewTest::showsLongLists()
{
    ViewFixture fixture;
    for (int number = 0; number < 200; ++number)
        fixture.windows->addWindow(u"application %1"_qs.arg(number / 5, 2, 10, QChar(u'0')),
                                   {.title = u"%1"_qs.arg(number)});
    OpenSheet sheet(fixture, CapturePurpose::create);
    QVERIFY(sheet.reaches(Kind::loaded));
    QVERIFY(sheet.button(u"0"_qs));
    QVERIFY(!sheet.button(u"199"_qs));
    QTRY_VERIFY(sheet.button(u"199"_qs));
    const auto boxes = sheet.view->findChildren<CheckBox*>();
    QCOMPARE(boxes.size(), 200 + 2 * 40);
    int bottom = 0;
    for (const CheckBox* box : boxes) {
        const int top = box->mapTo(sheet.view, QPoint()).y();
        QVERIFY(top >= bottom - box->height());
        bottom = std::max(bottom, top);
    }
}

void WorkspaceCaptureViewTest::reviewsACapture()
{
    ViewFixture fixture;
    fixture.windows->addWindow(u"editor"_qs, {.title = u"Draft"_qs});
    fixture.windows->addWindow(u"mail"_qs, {.title = {}});
    QList<CapturedApplication> applications;
    auto capture = fixture.dependencies().windowCapture().captureApplications({}, true);
    capture.then([&](const WindowCaptureService::Capture& captured) { applications = *captured; });
    QTRY_COMPARE(applications.size(), 2);
    fixture.window().show();
    QPointer review =
        new EditorCaptureReviewView(fixture.environment(), applications, &fixture.window());
    QSignalSpy confirmed(review, &EditorCaptureReviewView::useSelectedWindows);
    review->open();
    QVERIFY(find<QLabel>(*review, u"2 windows selected"_qs));
    press(find<Switch>(*review, u"editor"_qs), Qt::Key_Space);
    press(find<Switch>(*review, u"mail"_qs), Qt::Key_Space);
    QVERIFY(!find<QAbstractButton>(*review, u"Use Selected Windows"_qs)->isEnabled());
    QVERIFY(find<Switch>(*review, u"Draft"_qs)->isChecked());
    press(find<Switch>(*review, u"Draft"_qs), Qt::Key_Space);
    press(find<Switch>(*review, u"editor"_qs), Qt::Key_Space);
    press(find<Switch>(*review, u"mail"_qs), Qt::Key_Space);
    QVERIFY(find<QLabel>(*review, u"1 windows selected"_qs));
    QVERIFY(!applications[0].windows[0].isIncluded);

    for (const Picture* picture : review->findChildren<Picture*>()) {
        if (!picture->accessibleName().isEmpty()) {
            QAccessibleInterface* face =
                QAccessible::queryAccessibleInterface(const_cast<Picture*>(picture));
            QCOMPARE(face->role(), QAccessible::Graphic);
        }
    }
    click(*review, u"Use Selected Windows"_qs);
    QCOMPARE(confirmed.size(), 1);
    QTRY_VERIFY(!review);
}

void WorkspaceCaptureViewTest::leavesRoomForOtherLanguages_data()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("long texts") << u"en-XA"_qs;
    QTest::newRow("from right to left") << u"ar-XB"_qs;
}

void WorkspaceCaptureViewTest::leavesRoomForOtherLanguages()
{
    QFETCH(QString, language);
    ViewFixture fixture;
    TrovellWorkspace& workspace = fixture.addWorkspace(u"Work"_qs);
    fixture.addItem(workspace, WorkspaceItemType::application, u"editor"_qs);
    fixture.addPlacement(workspace, u"closed"_qs);
    fixture.windows->addWindow(u"editor"_qs, {.title = {}});
    const QStringList data{u"editor"_qs, u"closed"_qs, u"closed window"_qs};
    const auto check = [&](WorkspaceCaptureView& view) {
        // Opened in English: everything follows the language.
        fixture.environment().words.setLanguage(language);
        QTest::qWait(20);
        QStringList names = data;
        for (const QString& choice : symbols() + accents())
            names.append(choice);
        QCOMPARE(textsNotLookedUp(view, names).join(u'|'), QString());
        QCOMPARE(clippedTexts(view).join(u'|'), QString());
        fixture.environment().words.setLanguage(u"en"_qs);
    };
    for (const auto purpose : {CapturePurpose::create, CapturePurpose::update}) {
        OpenSheet loaded(fixture, purpose, &workspace);
        QVERIFY(loaded.reaches(Kind::loaded));
        check(*loaded.view);
        setTrusted(fixture, false);
        OpenSheet asking(fixture, purpose, &workspace);
        QVERIFY(asking.reaches(Kind::idle));
        check(*asking.view);
        if (purpose == CapturePurpose::create) {
            click(*asking.view, u"Continue with Apps Only"_qs);
            QVERIFY(asking.reaches(Kind::loaded));
            check(*asking.view);
        }
        delete asking.view;
        setTrusted(fixture, true);
    }
}

QTEST_MAIN(WorkspaceCaptureViewTest)
#include "WorkspaceCaptureViewTest.moc"
