// SPDX-License-Identifier: MIT

#include "windows/WindowRestoreService.h"

#include "support/FakeClock.h"
#include "support/FakeWindowSystem.h"

#include <QtTest>

using namespace Qt::StringLiterals;

using namespace trovell;

namespace {

WindowPlacementSnapshot placement(const FakeWindowSystem& desktop,
                                  const std::optional<QString>& title, qint64 index = 0)
{
    WindowPlacementSnapshot snapshot;
    snapshot.id = QUuid::createUuid();
    snapshot.bundleIdentifier = u"editor"_s;
    snapshot.applicationName = u"Editor"_s;
    snapshot.windowTitleHint = title;
    snapshot.windowIndexHint = index;
    snapshot.normalizedFrame = {0.5, 0.5, 0.5, 0.5};
    snapshot.displayFingerprint = desktop.fingerprint(0);
    return snapshot;
}

WindowRestoreAttempt restore(FakeWindowSystem& desktop,
                             const QList<WindowPlacementSnapshot>& placements)
{
    FakeClock clock;
    WindowRestoreService service(desktop, clock);
    return QCoro::waitFor(service.restorePlacements(placements));
}

} // namespace

class WindowRestoreServiceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void finalFailuresNameTheApplication()
    {
        FakeWindowSystem desktop;
        desktop.addWindow(u"editor"_s, {.title = u"Notes"_s, .refusesFrames = true});
        const auto saved = placement(desktop, u"Notes"_s);
        const auto outcome = [&] {
            const auto attempt = restore(desktop, {saved, placement(desktop, u"None"_s)});
            const LaunchResult result = attempt.completed.value(saved.id);
            return u"%1 %2: %3"_s.arg(result.name.productText(), rawValue(result.kind),
                                      result.detail.productText());
        };
        QCOMPARE(outcome(), u"Editor failed: macOS refused the window position change."_s);
        const int readCount = desktop.readCount();
        desktop.displays.clear();
        QCOMPARE(outcome(), u"Editor failed: No display is available."_s);
        desktop.trusted = false;
        QCOMPARE(outcome(),
                 u"Editor skippedNoPermission: Allow Accessibility access before capturing "
                 "or restoring windows."_s);
        QCOMPARE(desktop.readCount(), readCount + 1);
    }

    void waitsForWhatIsNotThereYet()
    {
        FakeWindowSystem desktop;
        const auto first = placement(desktop, u"Notes"_s, 0);
        const auto second = placement(desktop, u"Notes"_s, 1);
        auto attempt = restore(desktop, {first, second});
        QVERIFY(attempt.completed.isEmpty());
        QCOMPARE(attempt.retryableDetails.value(second.id).productText(),
                 u"The application is not running yet."_s);

        desktop.addWindow(u"editor"_s, {.title = u"Notes"_s, .isMinimized = true});
        const auto window = desktop.addWindow(u"editor"_s, {.title = u"notes"_s});
        attempt = restore(desktop, {second, first});
        QCOMPARE(attempt.completed.keys(), QList<QUuid>{first.id});
        const LaunchResult result = attempt.completed.value(first.id);
        QCOMPARE(result.kind, LaunchResultKind::restored);
        QCOMPARE(result.name.productText(), u"Notes"_s);
        QVERIFY(result.detail.isEmpty());
        QCOMPARE(desktop.window(window).frame, QRectF(720, 25, 720, 437.5));
        QCOMPARE(attempt.retryableDetails.value(second.id).productText(),
                 u"A safe matching window was not found yet."_s);
    }

    void bringsBackDesktopStatesAndOrder()
    {
        FakeWindowSystem desktop;
        desktop.virtualDesktopNames = {u"Mail"_s, u"Code"_s, u"Music"_s};
        FakeClock clock;
        WindowRestoreService service(desktop, clock);
        QList<WindowPlacementSnapshot> saved;
        QList<WindowId> windows;
        for (const auto& title : {u"below"_s, u"above"_s}) {
            saved.append(placement(desktop, title, saved.size()));
            windows.append(desktop.addWindow(
                u"editor"_s, {.title = title, .virtualDesktop = DesktopPlace{.index = 0}}));
        }
        const auto restoreAll = [&] {
            const auto run = service.beginRun({u"editor"_s});
            QCoro::waitFor(service.restorePlacements(saved, run));
            QCoro::waitFor(service.endRun(run));
            return run;
        };
        const auto place = [&desktop](const WindowId& window) {
            return desktop.window(window).virtualDesktop;
        };

        saved[0].stackingIndex = 1;
        saved[1].stackingIndex = 0;
        saved[0].states = WindowStates(WindowState::maximizedVertically);
        // By name, though its number is another one now; one that is gone goes by its number.
        saved[0].virtualDesktop = SavedDesktop{.index = 0, .name = u"Music"_s};
        saved[1].virtualDesktop = SavedDesktop{.index = 1, .name = u"Web"_s};
        const auto before = desktop.window(windows[0]);
        const auto run = restoreAll();
        QCOMPARE(place(windows[0]), DesktopPlace{.index = 2});
        QCOMPARE(place(windows[1]), DesktopPlace{.index = 1});
        QCOMPARE(desktop.window(windows[0]).states, WindowStates(WindowState::maximizedVertically));
        QCOMPARE(desktop.stacking, (QList{windows[1], windows[0]}));
        // They lie on two desktops: nobody is taken to either of them.
        QVERIFY(!desktop.shownDesktop);

        // All of it goes back, except for what is gone and what stands there already.
        desktop.removeWindow(windows[1]);
        const auto back = QCoro::waitFor(service.putBack(run));
        QCOMPARE(back.size(), 1);
        QCOMPARE(back.first().kind, LaunchResultKind::restored);
        QCOMPARE(desktop.window(windows[0]), before);
        QVERIFY(QCoro::waitFor(service.putBack(run)).isEmpty());

        saved.removeLast();
        restoreAll();
        QCOMPARE(desktop.shownDesktop, 2);
        desktop.shownDesktop.reset();
        desktop.desktopInView = 2;
        restoreAll();
        QVERIFY(!desktop.shownDesktop);
        saved[0].virtualDesktop = SavedDesktop{.isAll = true};
        restoreAll();
        QCOMPARE(place(windows[0]), DesktopPlace{.isAll = true});
        QVERIFY(!desktop.shownDesktop);
    }

    void callsOfOneTurnReadTheDesktopTogether()
    {
        FakeWindowSystem desktop;
        FakeClock clock;
        WindowRestoreService service(desktop, clock);
        auto notes = placement(desktop, u"Notes"_s);
        auto mail = placement(desktop, u"Inbox"_s);
        mail.bundleIdentifier = u"mail"_s;
        auto absent = placement(desktop, u"Song"_s);
        absent.bundleIdentifier = u"player"_s;
        desktop.addWindow(u"editor"_s, {.title = u"Notes"_s});
        auto ofEditor = service.restorePlacements({notes});
        auto ofMail = service.restorePlacements({mail});
        auto ofPlayer = service.restorePlacements({absent});
        // Appears after it was asked for, and before the reading.
        const auto inbox = desktop.addWindow(u"mail"_s, {.title = u"Inbox"_s});
        QCOMPARE(QCoro::waitFor(ofMail).completed.value(mail.id).kind, LaunchResultKind::restored);
        QCOMPARE(QCoro::waitFor(ofEditor).completed.value(notes.id).kind,
                 LaunchResultKind::restored);
        QCOMPARE(QCoro::waitFor(ofPlayer).retryableDetails.keys(), QList<QUuid>{absent.id});
        QCOMPARE(desktop.readCount(), 1);

        // A later call never gets an earlier reading.
        desktop.removeWindow(inbox);
        QVERIFY(QCoro::waitFor(service.restorePlacements({mail})).completed.isEmpty());
        desktop.addWindow(u"mail"_s, {.title = u"Inbox"_s});
        QCOMPARE(QCoro::waitFor(service.restorePlacements({mail})).completed.size(), 1);
    }

    void findsTheBestRemainingDisplay()
    {
        FakeWindowSystem desktop;
        auto saved = placement(desktop, u"Notes"_s);
        saved.displayFingerprint.localizedName = u"Gone"_s;
        saved.displayFingerprint.isMain = false;
        saved.displayFingerprint.relativeX = 1440;
        desktop.displays.append(
            {u"Right"_s, {1440, 100, 800, 600}, {1440, 160, 800, 500}, 1.0, false});
        const StoredDisplays displays(desktop.displays);
        // Fractions of its visible frame, counted from its bottom.
        QCOMPARE(restoreTarget(saved, displays), QRectF(1840, 160, 400, 250));
        saved.normalizedFrame = {0.9, 0.0, 0.05, 0.05};
        QCOMPARE(restoreTarget(saved, displays), QRectF(2000, 500, 240, 160));
        QVERIFY(!restoreTarget(saved, StoredDisplays({})));
    }

    void keepsFramesFiniteAndInside()
    {
        const FakeWindowSystem desktop;
        for (const double value : {qQNaN(), qInf(), -qInf(), 1e300, -5.0})
            for (const auto member : {&NormalizedFrame::x, &NormalizedFrame::y,
                                      &NormalizedFrame::width, &NormalizedFrame::height}) {
                auto saved = placement(desktop, u"Notes"_s);
                saved.normalizedFrame.*member = value;
                const auto target = restoreTarget(saved, StoredDisplays(desktop.displays));
                QVERIFY(target && QRectF(0, 25, 1440, 875).contains(*target));
            }
    }
};

QTEST_GUILESS_MAIN(WindowRestoreServiceTest)
#include "WindowRestoreServiceTest.moc"
