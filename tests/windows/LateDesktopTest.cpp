// SPDX-License-Identifier: MIT
//
// Capture, restore and launch on a desktop that answers everything late, whose windows close while
// they are placed, and which refuses some frames.

#include "launch/WorkspaceLauncher.h"
#include "model/TrovellWorkspace.h"
#include "model/WindowPlacement.h"
#include "support/FakeResourceSystem.h"
#include "support/LateWindowSystem.h"
#include "support/SystemClock.h"
#include "windows/AccessibilityPermissionManager.h"
#include "windows/WindowCaptureService.h"

#include <QtTest>

using namespace trovell;

namespace {

struct Desktop {
    FakeWindowSystem windows;
    LateWindowSystem late{windows};
    SystemClock clock;
    FakeResourceSystem resources;
    ResourceOpeningService opener{borrowed(resources),
                                  [](const QString&, bool) { return QFuture<bool>(); }};
    WindowRestoreService restorer{late, clock};
    WorkspaceLauncher launcher{opener, restorer, late, clock};

    Desktop()
    {
        for (int i = 0; i < 20; ++i)
            windows.addWindow(u"editor %1"_s.arg(i % 4), {.title = u"Chapter %1"_s.arg(i)});
    }
};

} // namespace

class LateDesktopTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void permissionIsKnownOnceTheDesktopAnswers()
    {
        Desktop desktop;
        const auto control = [&] {
            return desktop.late.ask({}).then(
                [](const DesktopSnapshot& s) { return s.control == WindowControl::available; });
        };
        auto manager = std::make_unique<AccessibilityPermissionManager>(
            AccessibilityPermissionManager::Platform{control, control, [](const QUrl&) {}, {}},
            desktop.clock);
        QVERIFY(!manager->isTrusted());
        QVERIFY(QCoro::waitFor(manager->refresh()));
        QVERIFY(manager->isTrusted());
        // An answer may come back to nobody.
        manager->refresh();
        manager->requestAccess();
        manager.reset();
        QTest::qWait(120);
    }

    void capturesWhatIsThereWhenItAnswers()
    {
        Desktop desktop;
        const WindowCaptureService service(desktop.late, 1);
        auto capturing = service.captureApplications({}, false);
        desktop.windows.addWindow(u"late"_s, {.title = u"Late"_s});
        const auto captured = QCoro::waitFor(capturing);
        QCOMPARE(captured->size(), 5);
        QCOMPARE(captured->last().windows.first().windowTitle, u"Late"_s);
    }

    void everyPlacementEndsInOneLine()
    {
        Desktop desktop;
        const auto captured =
            *QCoro::waitFor(WindowCaptureService(desktop.late, 1).captureApplications({}, false));
        TrovellWorkspace workspace{WorkspaceValues()};
        for (const CapturedApplication& application : captured) {
            for (const CapturedWindow& window : application.windows)
                workspace.appendPlacement(makePlacement(window));
        }
        const WindowId closing = desktop.windows.addWindow(u"closing"_s, {.title = u"Closing"_s});
        desktop.windows.addWindow(u"stubborn"_s, {.title = u"Stubborn"_s, .refusesFrames = true});
        for (const QString& name : {u"closing"_s, u"stubborn"_s, u"absent"_s})
            workspace.appendPlacement(std::make_unique<WindowPlacement>(
                name, name, name, std::nullopt, std::nullopt, 0, NormalizedFrame{0, 0, 0.5, 0.5},
                QRectF(), desktop.windows.fingerprint(0), true));
        desktop.late.onPlace = [&] { desktop.windows.removeWindow(closing); };
        QCoro::waitFor(desktop.launcher.start(&workspace, true, 1));
        QHash<LaunchResultKind, int> counts;
        for (const LaunchResult& result : desktop.launcher.latestReport()->results)
            ++counts[result.kind];
        QCOMPARE(counts.value(LaunchResultKind::restored), 20);
        QCOMPARE(counts.value(LaunchResultKind::failed), 2);
        QCOMPARE(counts.value(LaunchResultKind::timedOut), 1);
    }
};

QTEST_GUILESS_MAIN(LateDesktopTest)
#include "LateDesktopTest.moc"
