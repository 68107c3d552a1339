// The X11 adapter on real servers, with real window managers and programs.

#include "platform/x11/X11WindowSystem.h"
#include "support/VirtualDesktop.h"

#include <QTest>

using namespace trovell;
using namespace trovell::test;

namespace {

QRectF frameOf(const WindowAttributes& attributes)
{
    return QRectF(attributes.position.value_or(QPointF()), attributes.size.value_or(QSizeF()));
}

} // namespace

class X11WindowSystemTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void placesRealProgramsExactly_data();
    void placesRealProgramsExactly();
};

void X11WindowSystemTest::placesRealProgramsExactly_data()
{
    QTest::addColumn<WindowManager>("windowManager");
    for (const WindowManager windowManager : availableWindowManagers())
        QTest::addRow("%s", windowManagerName(windowManager)) << windowManager;
}

void X11WindowSystemTest::placesRealProgramsExactly()
{
    QFETCH(WindowManager, windowManager);
    VirtualDesktop desktop(windowManager);
    QVERIFY2(desktop.isReady(), qPrintable(desktop.error()));
    DesktopInspector& inspector = desktop.inspector();
    desktop.start("xterm");
    desktop.start("mousepad");
    desktop.start("featherpad");
    desktop.start("gnome-text-editor");
    desktop.start("gnome-calculator");
    desktop.startClient({"--title", "client"});
    QVERIFY(inspector.waitForWindowCount(6));
    for (const auto& w : inspector.windows())
        inspector.waitForRest(w.id);
    for (const auto& w : inspector.windows())
        qDebug() << w.title << w.wmClass << w.client << w.frame << w.outermost
                 << w.processIdentifier;
    X11WindowSystem system(desktop.displayName(), {}, {});
    QVERIFY(system.isTrusted());
    const auto apps = system.runningApplications();
    const auto all = system.readWindows(apps);
    QList<WindowFrameRequest> requests;
    for (qsizetype i = 0; i < apps.size(); ++i) {
        qDebug() << apps[i].bundleIdentifier.value() << apps[i].processIdentifier
                 << apps[i].bundleURL.value_or(u""_qs) << apps[i].isRegular;
        for (const auto& w : all[i]) {
            qDebug() << "   " << w.title.value_or(u"-"_qs) << w.role.value() << w.subrole.value()
                     << frameOf(w);
            const auto inspected = inspector.window(quint32(w.handle));
            QCOMPARE(frameOf(w), QRectF(inspected->frame));
        }
    }
    int shift = 0;
    for (const char* state : {"normal", "maximized", "full screen", "normal"}) {
        requests.clear();
        for (qsizetype i = 0; i < apps.size(); ++i) {
            for (const auto& w : all[i]) {
                requests.append(
                    {w.handle, QRectF(100 + 30 * int(i) + shift, 80 + 20 * int(i) + shift,
                                      700 + shift, 600 + shift)});
                if (state[0] == 'm')
                    inspector.setMaximized(quint32(w.handle), true);
                if (state[0] == 'f')
                    inspector.setFullScreen(quint32(w.handle), true);
            }
        }
        shift += 31;
        for (const auto& w : inspector.windows())
            inspector.waitForRest(w.id);
        QElapsedTimer timer;
        timer.start();
        const auto answers = system.setWindowFrames(requests);
        qDebug() << state << timer.elapsed() << "ms" << answers;
        for (int round = 0; round < 2; ++round) {
            for (const auto& r : requests) {
                const auto w = inspector.window(quint32(r.handle));
                if (QRectF(w->frame) != r.frame)
                    qDebug() << (round ? "LATER" : "NOW") << w->title << w->frame << r.frame
                             << w->isMaximized << w->isFullScreen;
            }
            QTest::qWait(1200);
        }
    }
}

QTEST_GUILESS_MAIN(X11WindowSystemTest)
#include "X11WindowSystemTest.moc"
