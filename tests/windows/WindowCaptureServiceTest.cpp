// SPDX-License-Identifier: MIT

#include "windows/WindowCaptureService.h"

#include "support/FakeWindowSystem.h"
#include "windows/OrdinaryWindow.h"

#include <QtTest>

using namespace Qt::StringLiterals;

using namespace trovell;

namespace {

constexpr qint64 ownProcess = 1;

using Window = FakeWindowSystem::Window;

WindowCaptureService::Capture capture(FakeWindowSystem& desktop,
                                      std::optional<QSet<QString>> filter = {},
                                      bool allowEmpty = false)
{
    const WindowCaptureService service(desktop, ownProcess);
    return QCoro::waitFor(service.captureApplications(filter, allowEmpty));
}

QStringList identifiers(const QList<CapturedApplication>& applications)
{
    QStringList list;
    for (const CapturedApplication& application : applications)
        list.append(application.bundleIdentifier);
    return list;
}

} // namespace

class WindowCaptureServiceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void tellsOrdinaryWindows()
    {
        const auto isOrdinary = [](auto change) {
            DesktopWindow window{.id = {}, .frame = QRectF(0, 0, 81, 61)}; // the smallest
            change(window);
            return isOrdinaryWindow(window);
        };
        QVERIFY(isOrdinary([](auto& w) { w.states = ~WindowStates(WindowState::minimized); }));
        QVERIFY(!isOrdinary([](auto& w) { w.states = WindowState::minimized; }));
        QVERIFY(!isOrdinary([](auto& w) { w.frame.reset(); }));
        QVERIFY(!isOrdinary([](auto& w) { w.frame->setWidth(80); }));
        QVERIFY(!isOrdinary([](auto& w) { w.frame->setHeight(60); }));
        QVERIFY(!isOrdinary([](auto& w) { w.frame->setHeight(qQNaN()); }));
        for (const auto kind : {WindowKind::dialog, WindowKind::utility, WindowKind::notification})
            QVERIFY(!isOrdinary([kind](auto& w) { w.kind = kind; }));
    }

    void storesTheSameFormsAsEver()
    {
        QStringList texts{storedRole()};
        for (const auto kind : {WindowKind::standard, WindowKind::dialog, WindowKind::utility,
                                WindowKind::notification})
            texts.append(storedSubrole(kind));
        QCOMPARE(texts.join(u' '),
                 u"AXWindow AXStandardWindow AXDialog AXFloatingWindow AXSystemDialog"_s);

        // The primary display lies in the middle of the desktop.
        const StoredDisplays displays(
            {{u"Left"_s, {0, 50, 1280, 1024}, {0, 80, 1280, 994}, 1.5, false},
             {u"Main"_s, {1280, 100, 1600, 900}, {1280, 100, 1600, 870}, 1.0, true}});
        const DisplaySnapshot left = displays.snapshots().at(0);
        QCOMPARE(left.frame, QRectF(-1280, -74, 1280, 1024));
        QCOMPARE(left.visibleFrame, QRectF(-1280, -74, 1280, 994));
        QCOMPARE(left.fingerprint,
                 (DisplayFingerprint{u"Left"_s, 1920, 1536, 1280, 1024, 1.5, -1280, -74, false}));
        QCOMPARE(displays.snapshots().at(1).visibleFrame, QRectF(0, 30, 1600, 870));
        const QRectF window(1380, 130, 800, 600);
        QCOMPARE(displays.storedFrame(window), QRectF(100, 270, 800, 600));
        QCOMPARE(displays.desktopFrame(displays.storedFrame(window)), window);
        // Without a primary one the first is main.
        const Display only{u"Only"_s, {30, 40, 800, 600}, {30, 40, 800, 600}, 1.0, false};
        QVERIFY(StoredDisplays({only}).snapshots().first().fingerprint.isMain);
    }

    void capturesWindowsWithTheirPositionsAndDisplays()
    {
        FakeWindowSystem desktop;
        desktop.displays.append(
            {u"Second"_s, {1440, 0, 1000, 900}, {1440, 0, 1000, 900}, 1.0, false});
        desktop.addApplication(u"b"_s, u"beta"_s);
        desktop.addApplication(u"a"_s, u"Alpha"_s);
        desktop.addWindow(u"a"_s, {.title = u"Open"_s, .kind = WindowKind::dialog});
        desktop.addWindow(u"a"_s, {.title = u""_s, .frame = {1300, 100, 400, 300}});
        desktop.addWindow(u"b"_s, {.title = u"Notes"_s, .frame = {-9000, 0, 400, 300}});

        const auto captured = capture(desktop);
        QVERIFY(captured);
        QCOMPARE(identifiers(*captured), (QStringList{u"a"_s, u"b"_s}));
        const CapturedWindow window = captured->at(0).windows.first();
        QCOMPARE(captured->at(0).windows.size(), 1);
        QCOMPARE(window.windowIndex, 1);
        QCOMPARE(window.windowTitle, std::nullopt);
        QCOMPARE(window.subrole, u"AXStandardWindow"_s);
        QCOMPARE(window.frame, QRectF(1300, 500, 400, 300));
        QCOMPARE(window.display.fingerprint.localizedName, u"Second"_s);
        // A window on no display at all belongs to the first one.
        QCOMPARE(captured->at(1).windows.first().display.fingerprint.localizedName, u"Main"_s);
    }

    void leavesOutWhatIsNotTheUsers()
    {
        FakeWindowSystem desktop;
        desktop.addApplication(u"windowless"_s);
        desktop.addApplication(u"own"_s).processIdentifier = ownProcess;
        desktop.addApplication(u"panel"_s).isRegular = false;
        desktop.addApplication(u"gone"_s).isTerminated = true;
        desktop.addApplication(u"hidden"_s).isHidden = true;
        for (const QString& id : {u"editor"_s, u"own"_s, u"panel"_s, u"gone"_s, u"hidden"_s})
            desktop.addWindow(id, {.title = id});
        desktop.addWindow(u"minimised"_s, {.isMinimized = true});

        QCOMPARE(identifiers(*capture(desktop)), (QStringList{u"editor"_s, u"hidden"_s}));
        QCOMPARE(identifiers(*capture(desktop, QSet<QString>{u"hidden"_s})),
                 QStringList{u"hidden"_s});
    }

    void answersWhenThereIsNothing()
    {
        FakeWindowSystem desktop;
        desktop.addApplication(u"windowless"_s);
        QCOMPARE(capture(desktop).error(), WindowServiceError::noWindows);
        QVERIFY(capture(desktop, {}, true)->isEmpty());

        // Without a display there is nowhere to put a window.
        desktop.addWindow(u"windowless"_s, {});
        desktop.displays.clear();
        QCOMPARE(capture(desktop).error(), WindowServiceError::noWindows);

        const int readCount = desktop.readCount();
        desktop.trusted = false;
        QCOMPARE(capture(desktop, {}, true).error(),
                 WindowServiceError::accessibilityPermissionMissing);
        QCOMPARE(desktop.readCount(), readCount);
    }
};

QTEST_GUILESS_MAIN(WindowCaptureServiceTest)
#include "WindowCaptureServiceTest.moc"
