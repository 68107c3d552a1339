// SPDX-License-Identifier: MIT

#include "launch/WorkspaceLauncher.h"

#include "model/TrovellWorkspace.h"
#include "model/WindowPlacement.h"
#include "model/WorkspaceItem.h"
#include "support/FakeClock.h"
#include "support/FakeResourceSystem.h"
#include "support/FakeWindowSystem.h"
#include "support/Patience.h"
#include "support/ReadyFuture.h"

#include <QtTest>

#include <semaphore>

using namespace Qt::StringLiterals;

using namespace trovell;
using namespace std::chrono_literals;

namespace {

struct Desktop {
    FakeClock clock;
    FakeWindowSystem windows;
    FakeResourceSystem resources;
    ResourceOpeningService opener;
    WindowRestoreService restorer{windows, clock};
    WorkspaceLauncher launcher{opener, restorer, windows, clock};
    std::unique_ptr<TrovellWorkspace> workspace =
        std::make_unique<TrovellWorkspace>(WorkspaceValues());

    /// `exists` is what the file system says, on a thread of its own.
    explicit Desktop(ResourceOpeningService::Exists exists = [](const QUrl&) { return true; })
        : opener(
              borrowed(resources),
              [this](const QString& id, bool) { return readyFuture(windows.isRunning(id)); },
              std::move(exists))
    {
    }

    void addItem(const QString& name, WorkspaceItemType type, bool isEnabled = true)
    {
        WorkspaceItemValues values;
        values.typeRawValue = rawValue(type);
        values.displayName = name;
        values.sortOrder = workspace->itemCount();
        values.urlString = u"file:///things/%1"_s.arg(name);
        values.isEnabled = isEnabled;
        if (type == WorkspaceItemType::application)
            values.bundleIdentifier = name;
        workspace->appendItem(std::make_unique<WorkspaceItem>(values));
    }

    void addPlacement(const QString& application, const std::optional<QString>& title,
                      qint64 index = 0, bool isEnabled = true)
    {
        workspace->appendPlacement(std::make_unique<WindowPlacement>(
            application, application.toUpper(), title, u"AXWindow"_s, std::nullopt, index,
            NormalizedFrame{0, 0, 0.5, 0.5}, QRectF(0, 0, 100, 100), windows.fingerprint(0),
            isEnabled));
    }

    void start(bool isTrusted = true, double timeout = 10)
    {
        launcher.start(workspace.get(), isTrusted, timeout);
    }

    /// Lets the launch run until `count` applications sleep between two passes or it ends.
    void settle(qsizetype count)
    {
        QTRY_VERIFY(!launcher.isLaunching() || clock.sleeperCount(250ms) == count);
    }

    /// A quarter second passes at a time until the launch ends.
    void runToEnd(qsizetype applicationCount)
    {
        settle(applicationCount);
        for (int i = 0; i < 200 && launcher.isLaunching(); ++i) {
            clock.advance(250ms);
            settle(applicationCount);
        }
        QTRY_VERIFY(!launcher.isLaunching());
    }

    QStringList report() const
    {
        QStringList lines;
        const QList<LaunchResult> results = launcher.latestReport()->results;
        for (const LaunchResult& line : results)
            lines.append(
                u"%1: %2 %3"_s
                    .arg(line.name.productText(), rawValue(line.kind), line.detail.productText())
                    .trimmed());
        return lines;
    }
};

} // namespace

class WorkspaceLauncherTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void opensItemsThenRestoresWindows()
    {
        Desktop desktop;
        desktop.windows.addWindow(u"editor"_s, {.title = u"Notes"_s});
        desktop.windows.addWindow(u"player"_s, {});
        desktop.addItem(u"editor"_s, WorkspaceItemType::application);
        desktop.addItem(u"folder"_s, WorkspaceItemType::folder);
        desktop.addItem(u"off"_s, WorkspaceItemType::file, false);
        desktop.addItem(u"player"_s, WorkspaceItemType::application);
        desktop.addPlacement(u"editor"_s, u"Notes"_s);
        desktop.addPlacement(u"editor"_s, u"Other"_s, 1, false);
        QSignalSpy reports(&desktop.launcher, &WorkspaceLauncher::latestReportChanged);
        QSignalSpy states(&desktop.launcher, &WorkspaceLauncher::isLaunchingChanged);
        const QDateTime before = desktop.workspace->updatedAt();

        desktop.start();
        QVERIFY(desktop.launcher.isLaunching());
        desktop.runToEnd(0);
        QCOMPARE(desktop.report(),
                 (QStringList{u"editor: alreadyRunning"_s, u"folder: opened"_s,
                              u"player: alreadyRunning"_s, u"Notes: restored"_s}));
        QCOMPARE(desktop.resources.opened(), QList<QUrl>{QUrl(u"file:///things/folder"_s)});
        // The first application of the workspace ends in front.
        QCOMPARE(desktop.windows.activated, (QStringList{u"player"_s, u"editor"_s}));
        QCOMPARE(desktop.launcher.latestWorkspaceID(), desktop.workspace->id());
        QCOMPARE(desktop.workspace->lastLaunchedAt(), desktop.clock.now());
        QVERIFY(desktop.workspace->updatedAt() != before);
        QCOMPARE(reports.size(), 1);
        QCOMPARE(states.size(), 2);
    }

    void waitsForLateWindowsUntilTheDeadline()
    {
        Desktop desktop;
        desktop.addPlacement(u"editor"_s, u"Late"_s, 0);
        desktop.addPlacement(u"editor"_s, u"Never"_s, 1);
        desktop.addPlacement(u"absent"_s, std::nullopt, 2);
        desktop.start();
        desktop.settle(2);
        for (int quarter = 0; quarter < 8; ++quarter) {
            desktop.clock.advance(250ms);
            desktop.settle(2);
        }
        desktop.windows.addWindow(u"editor"_s, {.title = u"Late"_s});
        const QDateTime start = desktop.clock.now().addMSecs(-2000);
        desktop.runToEnd(2);
        QCOMPARE(desktop.report(),
                 (QStringList{u"Late: restored"_s,
                              u"Never: timedOut A safe matching window was not found yet."_s,
                              u"ABSENT: timedOut The application is not running yet."_s}));
        QCOMPARE(start.msecsTo(desktop.clock.now()), 10'000);
        // One pass at once and one per quarter second, the deadline included: 41 for each.
        QCOMPARE(desktop.clock.sleepCount(250ms), 80);
    }

    void oneWindowServesOnePlacement()
    {
        Desktop desktop;
        for (const qint64 index : {0, 1})
            desktop.addPlacement(u"terminal"_s, u"~"_s, index);
        desktop.windows.addWindow(u"terminal"_s, {.title = u"~"_s});
        desktop.start();
        desktop.runToEnd(1);
        QCOMPARE(desktop.report(),
                 (QStringList{u"~: restored"_s,
                              u"~: timedOut A safe matching window was not found yet."_s}));
        QCOMPARE(desktop.windows.placed.size(), 1);
    }

    void whatIsLeftGoesToWindowsOfThisLaunch()
    {
        Desktop desktop;
        desktop.windows.addWindow(u"files"_s, {.title = u"stood before"_s});
        desktop.addPlacement(u"files"_s, u"Projects"_s, 0);
        desktop.addPlacement(u"files"_s, u"Pictures"_s, 1);
        desktop.start();
        desktop.settle(1);
        const WindowId first = desktop.windows.addWindow(u"files"_s, {.title = u"home"_s});
        const WindowId second = desktop.windows.addWindow(u"files"_s, {.title = u"home"_s});
        desktop.runToEnd(1);
        QCOMPARE(desktop.report(), (QStringList{u"Projects: restored"_s, u"Pictures: restored"_s}));
        QCOMPARE(desktop.windows.placed, (QList<WindowId>{first, second}));
    }

    void tellsWhatIsTheCaseAndWhatToDo()
    {
        const auto advice = [](const std::function<void(Desktop&)>& arrange) {
            Desktop desktop;
            desktop.addPlacement(u"editor"_s, u"Notes"_s);
            arrange(desktop);
            desktop.start();
            desktop.runToEnd(1);
            return desktop.launcher.latestReport()->results.first().advice.productText();
        };
        QCOMPARE(advice([](Desktop& desktop) {
                     desktop.windows.addWindow(u"editor"_s,
                                               {.title = u"Notes"_s, .isMinimized = true});
                 }),
                 u"It is minimized. Show it and start the workspace again."_s);
        QCOMPARE(advice([](Desktop& desktop) {
                     desktop.windows.addWindow(u"editor"_s, {.title = u"Mail"_s});
                 }),
                 u"EDITOR shows “Mail” instead. Open the window there and start the workspace "
                 u"again."_s);
        QCOMPARE(advice([](Desktop&) {}),
                 u"EDITOR did not come up in time. Start it, and then the workspace again."_s);

        // What cannot come any more is told at once.
        Desktop desktop;
        desktop.addPlacement(u"editor"_s, u"Notes"_s);
        desktop.windows.addWindow(u"editor"_s, {.title = u"Notes"_s, .isMinimized = true});
        desktop.start();
        QTRY_VERIFY(!desktop.launcher.isLaunching());
    }

    void opensAsManyWindowsAsWereSaved()
    {
        Desktop desktop;
        int askedCount = 0;
        int refusedAfter = 9;
        desktop.resources.onNewWindow = [&](const QString& identifier) {
            if (++askedCount > refusedAfter)
                return false;
            desktop.windows.addWindow(identifier, {.title = u"~"_s});
            return true;
        };
        for (const qint64 index : {0, 1, 2})
            desktop.addPlacement(u"terminal"_s, u"~"_s, index);
        desktop.windows.addWindow(u"terminal"_s, {.title = u"~"_s});
        // Off for what no capture saw with several windows.
        desktop.start();
        desktop.runToEnd(1);
        QCOMPARE(askedCount, 0);

        for (WindowPlacement* placement : desktop.workspace->sortedPlacements())
            placement->setOpensMissingWindow(true);
        desktop.start();
        desktop.runToEnd(1);
        QCOMPARE(askedCount, 2);
        QCOMPARE(desktop.report(),
                 (QStringList{u"~: restored"_s, u"~: restored"_s, u"~: restored"_s,
                              u"TERMINAL: opened 2 windows opened"_s}));
        // It has them all now.
        desktop.start();
        desktop.runToEnd(0);
        QCOMPARE(askedCount, 2);

        // One that opens no further window is asked once.
        refusedAfter = 2;
        desktop.addPlacement(u"terminal"_s, u"~"_s, 3);
        desktop.workspace->sortedPlacements().last()->setOpensMissingWindow(true);
        desktop.start();
        desktop.runToEnd(1);
        QCOMPARE(askedCount, 3);
        QCOMPARE(desktop.report().size(), 4);
    }

    void wordsAloneWaitForABetterWindow()
    {
        Desktop desktop;
        desktop.addPlacement(u"editor"_s, u"todo list.txt - Editor"_s, 0);
        desktop.windows.addWindow(u"editor"_s, {.title = u"moved.txt - Editor"_s});
        const WindowId alike = desktop.windows.addWindow(u"editor"_s, {.title = u"todo.txt"_s});
        desktop.start();
        desktop.settle(1);
        QVERIFY(desktop.windows.placed.isEmpty());
        desktop.runToEnd(1);
        QCOMPARE(desktop.windows.placed, QList<WindowId>{alike});

        Desktop other;
        other.addPlacement(u"editor"_s, u"todo.txt"_s, 0);
        other.windows.addWindow(u"editor"_s, {.title = u"moved.txt"_s});
        other.start();
        other.runToEnd(1);
        QVERIFY(other.windows.placed.isEmpty());
    }

    void theDeadlineRunsOnASteadyClock()
    {
        for (const qint64 jump : {-3600, 3600}) {
            Desktop desktop;
            desktop.addPlacement(u"absent"_s, std::nullopt);
            desktop.start();
            desktop.settle(1);
            desktop.clock.setWallClock(desktop.clock.now().addSecs(jump));
            for (int quarter = 0; quarter < 20; ++quarter) {
                QVERIFY(desktop.launcher.isLaunching());
                desktop.clock.advance(250ms);
                desktop.settle(1);
            }
            desktop.clock.advance(5s);
            QTRY_VERIFY(!desktop.launcher.isLaunching());
        }
        Desktop patient;
        patient.addPlacement(u"absent"_s, std::nullopt);
        patient.start(true, 1e308);
        patient.settle(1);
        patient.clock.advance(24h);
        QTRY_VERIFY(!patient.launcher.isLaunching());
    }

    void reportsApplicationsInPlacementOrder()
    {
        Desktop desktop;
        desktop.addPlacement(u"slow"_s, u"First"_s, 0);
        desktop.addPlacement(u"quick"_s, u"Q"_s, 1);
        desktop.addPlacement(u"slow"_s, u"Second"_s, 2);
        desktop.windows.addWindow(u"quick"_s, {.title = u"Q"_s});
        desktop.start();
        desktop.settle(1);
        desktop.windows.addWindow(u"slow"_s, {.title = u"Second"_s});
        desktop.clock.advance(250ms);
        desktop.settle(1);
        desktop.windows.addWindow(u"slow"_s, {.title = u"First"_s});
        desktop.runToEnd(1);
        // In the order in which they were completed within an application.
        QCOMPARE(desktop.report(),
                 (QStringList{u"Second: restored"_s, u"First: restored"_s, u"Q: restored"_s}));
    }

    void withoutTrustNoWindowIsTouched()
    {
        Desktop desktop;
        desktop.windows.addWindow(u"editor"_s, {.title = u"Notes"_s});
        desktop.addItem(u"editor"_s, WorkspaceItemType::application);
        desktop.addPlacement(u"editor"_s, u"Notes"_s);
        desktop.addPlacement(u"editor"_s, u"More"_s, 1);
        desktop.start(false);
        desktop.runToEnd(0);
        QCOMPARE(desktop.report(),
                 (QStringList{u"editor: alreadyRunning"_s,
                              u"Window layout: skippedNoPermission "
                              "Grant Accessibility access to restore saved windows."_s}));
        QVERIFY(desktop.windows.activated.isEmpty());
        QCOMPARE(desktop.windows.readCount(), 0);
    }

    void aSecondStartIsIgnored()
    {
        Desktop desktop;
        desktop.addItem(u"off"_s, WorkspaceItemType::file, false);
        desktop.start();
        desktop.runToEnd(0);
        QVERIFY(desktop.launcher.latestReport()->results.isEmpty());
        QVERIFY(desktop.workspace->lastLaunchedAt());

        const auto report = desktop.launcher.latestReport();
        desktop.addPlacement(u"absent"_s, std::nullopt);
        desktop.start();
        desktop.settle(1);
        TrovellWorkspace other{WorkspaceValues()};
        desktop.launcher.start(&other, true, 10);
        QCOMPARE(desktop.launcher.latestReport(), report);
        QVERIFY(!other.lastLaunchedAt());
        desktop.runToEnd(1);
        QCOMPARE(desktop.launcher.latestWorkspaceID(), desktop.workspace->id());
    }

    void aSecondPressOpensNothingTwice()
    {
        Desktop desktop;
        desktop.addItem(u"folder"_s, WorkspaceItemType::folder);
        const auto openedAfter = [&desktop](std::chrono::milliseconds pause) {
            desktop.clock.advance(pause);
            desktop.start();
            while (desktop.launcher.isLaunching())
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
            return desktop.resources.opened().size();
        };
        QCOMPARE(openedAfter(0s), 1);
        QCOMPARE(openedAfter(1s), 1);
        QCOMPARE(openedAfter(5s), 2);
        // With a layout it is another try.
        desktop.addPlacement(u"editor"_s, u"Notes"_s);
        desktop.windows.addWindow(u"editor"_s, {.title = u"Notes"_s});
        QCOMPARE(openedAfter(1s), 3);
    }

    void putsWindowsBack()
    {
        Desktop desktop;
        desktop.addItem(u"folder"_s, WorkspaceItemType::folder);
        desktop.start();
        desktop.runToEnd(0);
        QVERIFY(!desktop.launcher.canPutWindowsBack());

        desktop.addPlacement(u"editor"_s, u"Notes"_s);
        const WindowId window = desktop.windows.addWindow(u"editor"_s, {.title = u"Notes"_s});
        const QRectF frame = desktop.windows.window(window).frame;
        desktop.start();
        QVERIFY(!desktop.launcher.canPutWindowsBack());
        desktop.runToEnd(0);
        QVERIFY(desktop.windows.window(window).frame != frame);
        QVERIFY(desktop.launcher.canPutWindowsBack());
        desktop.launcher.putWindowsBack();
        desktop.runToEnd(0);
        QCOMPARE(desktop.windows.window(window).frame, frame);
        QCOMPARE(desktop.report(), QStringList{u"Notes: restored"_s});
        QVERIFY(!desktop.launcher.canPutWindowsBack());
        QCOMPARE(desktop.resources.opened().size(), 2);
    }

    void shortTimeoutsBecomeOneSecond()
    {
        for (const double timeout : {-5.0, 0.5, double(qQNaN())}) {
            Desktop desktop;
            desktop.addPlacement(u"absent"_s, std::nullopt);
            const QDateTime start = desktop.clock.now();
            desktop.start(true, timeout);
            desktop.runToEnd(1);
            QCOMPARE(start.msecsTo(desktop.clock.now()), 1000);
        }
    }

    void survivesADeletedWorkspace()
    {
        Desktop desktop;
        const QUuid id = desktop.workspace->id();
        desktop.addPlacement(u"absent"_s, std::nullopt);
        desktop.start(true, qInf());
        desktop.settle(1);
        desktop.workspace.reset();
        desktop.windows.addWindow(u"absent"_s, {});
        desktop.runToEnd(1);
        QCOMPARE(desktop.report(), QStringList{u"ABSENT: restored"_s});
        QCOMPARE(desktop.launcher.latestWorkspaceID(), id);
    }

    void cancels()
    {
        Desktop desktop;
        desktop.resources.onOpen = [&desktop] { desktop.launcher.cancel(); };
        desktop.addItem(u"first"_s, WorkspaceItemType::folder);
        desktop.addItem(u"second"_s, WorkspaceItemType::folder);
        desktop.addPlacement(u"absent"_s, std::nullopt);
        desktop.start();
        QCOMPARE(desktop.launcher.launchingWorkspaceID(), desktop.workspace->id());
        QTRY_VERIFY(!desktop.launcher.isLaunching());
        QCOMPARE(desktop.report(),
                 (QStringList{u"first: opened"_s, u"second: failed The start was canceled."_s,
                              u"ABSENT: timedOut The start was canceled."_s}));
        desktop.launcher.cancel();
        QVERIFY(!desktop.launcher.launchingWorkspaceID());
    }

    void endsWhateverDoesNotAnswer()
    {
        // A place that does not answer, and a desktop that does not.
        for (const bool isDesktopSilent : {false, true}) {
            const auto answer = std::make_shared<std::binary_semaphore>(isDesktopSilent ? 1 : 0);
            Desktop desktop([answer](const QUrl&) {
                answer->acquire();
                return true;
            });
            desktop.windows.isSilent = isDesktopSilent;
            desktop.addItem(u"far"_s, WorkspaceItemType::file);
            desktop.addPlacement(u"absent"_s, std::nullopt);
            desktop.start();
            for (int second = 0; second < 120 && desktop.launcher.isLaunching(); ++second) {
                QTest::qWait(1);
                desktop.clock.advance(1s);
            }
            QVERIFY(!desktop.launcher.isLaunching());
            QCOMPARE(desktop.report().first(),
                     isDesktopSilent ? u"far: opened"_s
                                     : u"far: failed Its place did not answer in time."_s);
            QCOMPARE(desktop.report().size(), 2);

            // An answer that comes too late opens and moves nothing.
            const qsizetype openedCount = desktop.resources.opened().size();
            answer->release();
            desktop.windows.answer();
            // This test and the opener hold it; the search that did not end has let go of it.
            QTRY_COMPARE(answer.use_count(), 2L);
            QCoreApplication::processEvents();
            QThreadPool::globalInstance()->waitForDone();
            QCoreApplication::processEvents();
            QCOMPARE(desktop.resources.opened().size(), openedCount);
            QVERIFY(desktop.windows.placed.isEmpty());
        }
    }

    void summarisesItsReport()
    {
        using enum LaunchResultKind;
        const auto verify = [](const QList<LaunchResultKind>& kinds, const QString& sentence,
                               qint64 unresolved = 0, qint64 skipped = 0) {
            WorkspaceLaunchReport report;
            for (const LaunchResultKind kind : kinds)
                report.results.append(makeLaunchResult({}, kind));
            QCOMPARE(report.summary().productText(), sentence);
            QCOMPARE(report.unresolvedCount(), unresolved);
            QCOMPARE(report.skippedCount(), skipped);
        };
        verify({}, u"Completed 0 actions successfully."_s);
        verify({launched, alreadyRunning, opened, restored, restored},
               u"Completed 5 actions and restored 2 windows."_s);
        verify({opened, opened, skippedMissingResource},
               u"Completed 2 actions. Review 1 skipped or failed items."_s, 1, 1);
        verify({launched, restored, timedOut},
               u"Completed 2 actions. 1 windows restored. Review 1 skipped or failed items."_s, 1,
               1);
        verify({skippedNoPermission}, u"Completed 0 actions. Review 1 skipped or failed items."_s,
               0, 1);
        verify({failed, windowNotFound},
               u"Completed 0 actions. Review 2 skipped or failed items."_s, 2, 1);
    }
};

QTEST_GUILESS_MAIN(WorkspaceLauncherTest)
#include "WorkspaceLauncherTest.moc"
