// The harness itself: what every test on a virtual desktop relies on.

#include "support/VirtualDesktop.h"

#include <QTest>

using namespace trovell::test;

class VirtualDesktopTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void startsWithEveryWindowManager_data();
    void startsWithEveryWindowManager();
};

void VirtualDesktopTest::startsWithEveryWindowManager_data()
{
    QTest::addColumn<WindowManager>("windowManager");
    for (const WindowManager windowManager : availableWindowManagers())
        QTest::addRow("%s", windowManagerName(windowManager)) << windowManager;
}

void VirtualDesktopTest::startsWithEveryWindowManager()
{
    QFETCH(WindowManager, windowManager);
    VirtualDesktop desktop(windowManager);
    QVERIFY2(desktop.isReady(), qPrintable(desktop.error()));
    QCOMPARE(desktop.display(0), QRect(0, 0, 1600, 1024));
    QCOMPARE(desktop.display(1), QRect(1600, 0, 1280, 1024));

    desktop.startClient({"--title", "Ünïcode ✓", "--geometry", "400,300,50,60"});
    const InspectedWindow window = desktop.inspector().waitForWindow(u"Ünïcode ✓");
    QCOMPARE(window.client.size(), QSize(400, 300));

    desktop.unplugDisplay(1);
    QCOMPARE(desktop.display(1), QRect());
    desktop.plugDisplay(1, QSize(1280, 1024), QPoint(1600, 0));
    QCOMPARE(desktop.display(1), QRect(1600, 0, 1280, 1024));
}

QTEST_GUILESS_MAIN(VirtualDesktopTest)
#include "VirtualDesktopTest.moc"
