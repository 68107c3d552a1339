#include "windows/AccessibilityPermissionManager.h"

#include "support/FakeClock.h"

#include <QSignalSpy>
#include <QtTest>

using namespace trovell;
using namespace std::chrono_literals;

namespace {

/// A desktop that grants access at a given check, counted from one.
struct Desktop {
    int grantedAtCheck = 1'000'000;
    int checkCount = 0;
    int promptCount = 0;
    QList<QUrl> openedURLs;
    QUrl settingsURL{u"settings:windows"_qs};

    AccessibilityPermissionManager::Platform platform()
    {
        return {[this] { return ++checkCount >= grantedAtCheck; },
                [this] { return ++promptCount > 0 && checkCount >= grantedAtCheck; },
                [this](const QUrl& url) { openedURLs.append(url); }, settingsURL};
    }
};

} // namespace

class AccessibilityPermissionManagerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_clock = std::make_unique<FakeClock>(); }
    void noticesTheGrantAfterTheSettingsWereOpened();
    void pollsOnceAndForTwoMinutes();
    void survivesItsPoll();

private:
    /// Half a second passes, and everything that wakes up runs.
    void pass()
    {
        m_clock->advance(500ms);
        QCoreApplication::processEvents();
    }

    std::unique_ptr<FakeClock> m_clock;
};

void AccessibilityPermissionManagerTest::noticesTheGrantAfterTheSettingsWereOpened()
{
    Desktop desktop;
    AccessibilityPermissionManager manager(desktop.platform(), *m_clock);
    QSignalSpy changes(&manager, &AccessibilityPermissionManager::isTrustedChanged);
    desktop.grantedAtCheck = desktop.checkCount + 3;
    manager.openSystemSettings();
    QCOMPARE(desktop.openedURLs, QList<QUrl>{desktop.settingsURL});
    QVERIFY(!manager.isTrusted());
    pass();
    QVERIFY(manager.isTrusted());
    QCOMPARE(changes.size(), 1);
    const int checkCount = desktop.checkCount;
    pass();
    QCOMPARE(desktop.checkCount, checkCount);
    // A grant that is withdrawn is noticed at the next question and not polled for.
    desktop.grantedAtCheck = 1'000'000;
    manager.refresh();
    QVERIFY(!manager.isTrusted());
    QCOMPARE(m_clock->sleeperCount(), 0);
}

void AccessibilityPermissionManagerTest::pollsOnceAndForTwoMinutes()
{
    Desktop desktop;
    AccessibilityPermissionManager manager(desktop.platform(), *m_clock);
    manager.openSystemSettings();
    manager.requestAccess();
    QCOMPARE(desktop.promptCount, 1);
    pass(); // the first poll wakes up for the last time
    QCOMPARE(m_clock->sleeperCount(), 1);

    const int checkCount = desktop.checkCount;
    for (int i = 0; i < 300; ++i)
        pass();
    // The second poll's first two checks were made before the count was taken.
    QCOMPARE(desktop.checkCount, checkCount + 238);
    QVERIFY(!manager.isTrusted());
    QCOMPARE(m_clock->sleeperCount(), 0);
}

void AccessibilityPermissionManagerTest::survivesItsPoll()
{
    Desktop desktop;
    {
        AccessibilityPermissionManager manager(desktop.platform(), *m_clock);
        manager.startPolling();
    }
    const int checkCount = desktop.checkCount;
    pass();
    QCOMPARE(desktop.checkCount, checkCount);
}

QTEST_GUILESS_MAIN(AccessibilityPermissionManagerTest)
#include "AccessibilityPermissionManagerTest.moc"
