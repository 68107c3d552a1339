// SPDX-License-Identifier: MIT

#include "windows/AccessibilityPermissionManager.h"

#include "support/FakeClock.h"
#include "support/ReadyFuture.h"

#include <QtTest>

using namespace Qt::StringLiterals;

using namespace trovell;
using namespace std::chrono_literals;

namespace {

/// A desktop that grants access at a given check, counted from one.
struct Desktop {
    int grantedAtCheck = 1'000'000;
    int checkCount = 0;
    int promptCount = 0;
    QList<QUrl> openedURLs;
    const QUrl settingsURL{u"settings:windows"_s};
    FakeClock clock;
    std::unique_ptr<AccessibilityPermissionManager> manager =
        std::make_unique<AccessibilityPermissionManager>(
            AccessibilityPermissionManager::Platform{
                [this] { return readyFuture(++checkCount >= grantedAtCheck); },
                [this] { return readyFuture(++promptCount > 0 && checkCount >= grantedAtCheck); },
                [this](const QUrl& url) { openedURLs.append(url); }, settingsURL},
            clock);

    /// Half a second passes, and everything that wakes up runs.
    void pass()
    {
        clock.advance(500ms);
        QCoreApplication::processEvents();
    }
};

} // namespace

class AccessibilityPermissionManagerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void noticesTheGrantAfterTheSettingsWereOpened()
    {
        Desktop desktop;
        QSignalSpy changes(desktop.manager.get(),
                           &AccessibilityPermissionManager::isTrustedChanged);
        desktop.grantedAtCheck = desktop.checkCount + 3;
        desktop.manager->openSystemSettings();
        QCOMPARE(desktop.openedURLs, QList<QUrl>{desktop.settingsURL});
        QVERIFY(!desktop.manager->isTrusted());
        desktop.pass();
        QVERIFY(desktop.manager->isTrusted());
        QCOMPARE(changes.size(), 1);
        const int checkCount = desktop.checkCount;
        desktop.pass();
        QCOMPARE(desktop.checkCount, checkCount);
        // A grant that is withdrawn is noticed at the next question and not polled for.
        desktop.grantedAtCheck = 1'000'000;
        desktop.manager->refresh();
        QVERIFY(!desktop.manager->isTrusted());
        QCOMPARE(desktop.clock.sleeperCount(1h), 0);
    }

    void pollsOnceAndForTwoMinutes()
    {
        Desktop desktop;
        desktop.manager->openSystemSettings();
        desktop.manager->requestAccess();
        QCOMPARE(desktop.promptCount, 1);
        desktop.pass(); // the first poll wakes up for the last time
        QCOMPARE(desktop.clock.sleeperCount(1h), 1);

        int checkCount = desktop.checkCount;
        for (int i = 0; i < 300; ++i)
            desktop.pass();
        // The second poll's first two checks were made before the count was taken.
        QCOMPARE(desktop.checkCount, checkCount + 238);
        QVERIFY(!desktop.manager->isTrusted());
        QCOMPARE(desktop.clock.sleeperCount(1h), 0);

        // A poll may outlive its manager.
        desktop.manager->startPolling();
        desktop.manager.reset();
        checkCount = desktop.checkCount;
        desktop.pass();
        QCOMPARE(desktop.checkCount, checkCount);
    }
};

QTEST_GUILESS_MAIN(AccessibilityPermissionManagerTest)
#include "AccessibilityPermissionManagerTest.moc"
