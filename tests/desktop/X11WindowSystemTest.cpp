// The X11 adapter with real servers, window managers and programs: what it reads, and which
// applications it sees. Placing windows has a test of its own.

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

QList<WindowAttributes> allWindows(X11WindowSystem& system)
{
    QList<WindowAttributes> all;
    for (const auto& windows : system.readWindows(system.runningApplications()))
        all.append(windows);
    return all;
}

WindowAttributes windowTitled(X11WindowSystem& system, const QString& title)
{
    for (const WindowAttributes& window : allWindows(system)) {
        if (window.title == title)
            return window;
    }
    return {};
}

QStringList identifiers(const QList<RunningApplication>& applications)
{
    QStringList result;
    for (const RunningApplication& application : applications)
        result.append(application.bundleIdentifier.value_or(u"-"_qs));
    return result;
}

} // namespace

class X11WindowSystemTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void readsTheFramesThatPeopleSee_data();
    void readsTheFramesThatPeopleSee();
    void readsKindsStatesAndTitles();
    void groupsWindowsByApplication();
    void knowsApplicationsWithoutWindows();
    void isNotFooledByReusedWindowNumbers();
    void waitsForTheServerOnce();
    void describesDisplays();
    void seesPanelsComeChangeAndGo_data();
    void seesPanelsComeChangeAndGo();
    void countsFromThePrimaryDisplay();
    void activatesTheTopmostWindow();
    void trustsOnlyALiveWindowManager();
    void survivesTheEndOfTheServer();
};

void X11WindowSystemTest::readsTheFramesThatPeopleSee_data()
{
    QTest::addColumn<WindowManager>("windowManager");
    // Under these two the outermost window around a client is exactly what is seen of it.
    QTest::newRow("openbox") << WindowManager::openbox;
    QTest::newRow("xfwm4") << WindowManager::xfwm4;
}

void X11WindowSystemTest::readsTheFramesThatPeopleSee()
{
    QFETCH(WindowManager, windowManager);
    VirtualDesktop desktop(windowManager);
    QVERIFY2(desktop.isReady(), qPrintable(desktop.error()));
    desktop.start("xterm");
    desktop.start("mousepad");
    desktop.startClient({"--title", "plain", "--window", "--title", "bare", "--undecorated",
                         "--window", "--title", "shadowed", "--undecorated", "--gtk-frame-extents",
                         "20,21,22,23", "--geometry", "400,300,500,400"});
    QVERIFY(desktop.inspector().waitForWindowCount(5));
    const QList<InspectedWindow> windows = desktop.inspector().waitForRest();
    X11WindowSystem system(desktop.displayName(), {}, {});
    for (const InspectedWindow& window : windows) {
        const QRectF frame = frameOf(windowTitled(system, window.title));
        if (window.title == u"shadowed")
            QCOMPARE(frame, QRectF(window.outermost.adjusted(20, 22, -21, -23)));
        else
            QCOMPARE(frame, QRectF(window.outermost));
    }
}

void X11WindowSystemTest::readsKindsStatesAndTitles()
{
    VirtualDesktop desktop(WindowManager::openbox);
    QVERIFY2(desktop.isReady(), qPrintable(desktop.error()));
    const QByteArray unicode = "ασδφ 漢字 🎉 \"q\"\tש";
    desktop.startClient({"--title", "normal",  "--type",   "NORMAL",   "--window", "--title",
                         "dialog",  "--type",  "DIALOG",   "--window", "--title",  "utility",
                         "--type",  "UTILITY", "--window", "--title",  "dock",     "--type",
                         "DOCK",    "--strut", "0,0,30,0"});
    desktop.startClient({"--title", unicode, "--window", "--title", "transient", "--transient",
                         "--window", "--title", "iconic", "--iconic", "--window", "--title",
                         "hidden", "--window", "--latin1-title", "café", "--window", "--title",
                         ""});
    DesktopInspector& inspector = desktop.inspector();
    QVERIFY(inspector.waitForWindowCount(10));
    inspector.minimize(inspector.waitForWindow(u"hidden").id);
    QVERIFY(waitUntil([&] { return inspector.windowTitled(u"hidden")->isMinimized; }));

    X11WindowSystem system(desktop.displayName(), {}, {});
    const auto subrole = [&](const QString& title) {
        return windowTitled(system, title).subrole.value_or(u"none"_qs);
    };
    QCOMPARE(subrole(u"normal"_qs), u"AXStandardWindow"_qs);
    QCOMPARE(subrole(u"dialog"_qs), u"AXDialog"_qs);
    QCOMPARE(subrole(u"transient"_qs), u"AXDialog"_qs);
    QCOMPARE(subrole(u"utility"_qs), u"AXFloatingWindow"_qs);
    QCOMPARE(subrole(u"dock"_qs), u"none"_qs);
    QCOMPARE(subrole(QString::fromUtf8(unicode)), u"AXStandardWindow"_qs);
    QCOMPARE(subrole(u"café"_qs), u"AXStandardWindow"_qs);
    QCOMPARE(windowTitled(system, u"normal"_qs).isMinimized, false);
    QCOMPARE(windowTitled(system, u"iconic"_qs).isMinimized, true);
    QCOMPARE(windowTitled(system, u"hidden"_qs).isMinimized, true);
    const QList<WindowAttributes> all = allWindows(system);
    QCOMPARE(all.size(), 9);
    QVERIFY(std::any_of(all.begin(), all.end(), [](const auto& window) { return !window.title; }));
}

void X11WindowSystemTest::groupsWindowsByApplication()
{
    VirtualDesktop desktop(WindowManager::openbox);
    QVERIFY2(desktop.isReady(), qPrintable(desktop.error()));
    DesktopInspector& inspector = desktop.inspector();
    const QProcess& first =
        desktop.startClient({"--class", "Editor", "--title", "one", "--pid", "1"});
    QVERIFY(inspector.waitForWindowCount(1));
    desktop.startClient({"--class", "Plain", "--title", "two"});
    QVERIFY(inspector.waitForWindowCount(2));
    desktop.startClient(
        {"--class", "other", "--title", "three", "--gtk-application-id", "org.Editor"});
    QVERIFY(inspector.waitForWindowCount(3));
    desktop.startClient({"--class", "Panel", "--type", "DOCK"});
    QVERIFY(inspector.waitForWindowCount(4));

    QList<WindowIdentity> asked;
    const ApplicationIdentity editor = {u"org.Editor"_qs, u"The Editor"_qs,
                                        QUrl(u"file:///usr/share/a b.desktop"_qs)};
    X11WindowSystem system(desktop.displayName(),
                           [&](const WindowIdentity& window) {
                               asked.append(window);
                               const bool isEditor = window.wmClass == u"Editor" ||
                                                     window.gtkApplicationId == u"org.Editor";
                               return isEditor ? std::optional(editor) : std::nullopt;
                           },
                           {});
    const QList<RunningApplication> applications = system.runningApplications();
    QCOMPARE(identifiers(applications), (QStringList{u"org.Editor"_qs, u"Plain"_qs, u"Panel"_qs}));
    QCOMPARE(applications[0].windows.size(), 2);
    QCOMPARE(applications[0].localizedName, u"The Editor"_qs);
    QCOMPARE(applications[0].bundleURL, u"file:///usr/share/a%20b.desktop"_qs);
    // The server knows better than the program's own claim.
    QCOMPARE(applications[0].processIdentifier, static_cast<qint32>(first.processId()));
    QVERIFY(applications[0].isRegular);
    QCOMPARE(applications[1].localizedName, u"Plain"_qs);
    QCOMPARE(applications[1].bundleURL,
             QUrl::fromLocalFile(QString::fromLatin1(scriptedClientPath())).toString());
    QVERIFY(!applications[2].isRegular);
    QVERIFY(applications[2].windows.isEmpty());
    // Every window is looked up once in its life.
    QCOMPARE(asked.size(), 4);
    QCOMPARE(system.runningApplications(u"org.Editor"_qs).first().windows, applications[0].windows);
    QVERIFY(system.runningApplications(u"org.Nothing"_qs).isEmpty());
    QCOMPARE(asked.size(), 4);
}

void X11WindowSystemTest::knowsApplicationsWithoutWindows()
{
    VirtualDesktop desktop(WindowManager::openbox);
    QVERIFY2(desktop.isReady(), qPrintable(desktop.error()));
    desktop.startClient({"--class", "Seen"});
    QVERIFY(desktop.inspector().waitForWindowCount(1));
    const auto known = [](const QString& identifier) {
        RunningApplication application;
        application.processIdentifier = 77;
        application.bundleIdentifier = identifier;
        return application;
    };
    BackgroundApplications background;
    background.find = [&](const QString& identifier) {
        return identifier == u"Nothing" ? std::nullopt : std::optional(known(identifier));
    };
    background.list = [&] { return QList{known(u"Seen"_qs), known(u"Unseen"_qs)}; };
    X11WindowSystem system(desktop.displayName(), {}, background);
    QCOMPARE(identifiers(system.runningApplications()), (QStringList{u"Seen"_qs, u"Unseen"_qs}));
    QVERIFY(system.runningApplications(u"Seen"_qs).first().processIdentifier != 77);
    QCOMPARE(system.runningApplications(u"Unseen"_qs).first().processIdentifier, 77);
    QVERIFY(system.runningApplications(u"Nothing"_qs).isEmpty());
}

void X11WindowSystemTest::isNotFooledByReusedWindowNumbers()
{
    VirtualDesktop desktop(WindowManager::openbox);
    QVERIFY2(desktop.isReady(), qPrintable(desktop.error()));
    DesktopInspector& inspector = desktop.inspector();
    X11WindowSystem system(desktop.displayName(), {}, {});
    desktop.startClient({"--class", "Stays", "--title", "stays"});
    inspector.waitForWindow(u"stays");
    QProcess& first = desktop.startClient({"--class", "First", "--title", "first"});
    const quint32 number = inspector.waitForWindow(u"first").id;
    QCOMPARE(identifiers(system.runningApplications()), (QStringList{u"Stays"_qs, u"First"_qs}));
    VirtualDesktop::kill(first);
    QVERIFY(waitUntil([&] { return inspector.windows().size() == 1; }));
    desktop.startClient({"--class", "Second", "--title", "second"});
    // The same list of the same numbers, and yet another window.
    QCOMPARE(inspector.waitForWindow(u"second").id, number);
    QCOMPARE(identifiers(system.runningApplications()), (QStringList{u"Stays"_qs, u"Second"_qs}));
}

void X11WindowSystemTest::waitsForTheServerOnce()
{
    VirtualDesktop desktop(WindowManager::openbox);
    QVERIFY2(desktop.isReady(), qPrintable(desktop.error()));
    for (const char* wmClass : {"A", "B", "C"})
        desktop.startClient({"--class", wmClass, "--count", "20"});
    QVERIFY(desktop.inspector().waitForWindowCount(60));
    X11WindowSystem system(desktop.displayName(), {}, {});
    (void)system.runningApplications();
    const int before = system.roundTripCount();
    const QList<RunningApplication> applications = system.runningApplications();
    QCOMPARE(system.roundTripCount(), before + 1);
    const auto windows = system.readWindows(applications);
    QCOMPARE(system.roundTripCount(), before + 2);
    QCOMPARE(applications.size(), 3);
    for (const auto& ofApplication : windows)
        QCOMPARE(ofApplication.size(), 20);
}

void X11WindowSystemTest::describesDisplays()
{
    VirtualDesktop desktop(WindowManager::openbox);
    QVERIFY2(desktop.isReady(), qPrintable(desktop.error()));
    X11WindowSystem system(desktop.displayName(), {}, {});
    QList<DisplaySnapshot> displays = system.currentDisplays();
    QCOMPARE(displays.size(), 2);
    QCOMPARE(displays[0].frame, QRectF(0, 0, 1600, 1024));
    QCOMPARE(displays[0].visibleFrame, displays[0].frame);
    QCOMPARE(displays[0].fingerprint.localizedName, u"DUMMY0"_qs);
    QVERIFY(displays[0].fingerprint.isMain);
    QCOMPARE(displays[1].frame, QRectF(1600, 0, 1280, 1024));
    QVERIFY(!displays[1].fingerprint.isMain);

    // A panel at the top of the left display and one on the inner side of the right one.
    desktop.startClient({"--type", "DOCK", "--geometry", "1600,30,0,0", "--strut",
                         "0,0,30,0,0,0,0,0,0,1599,0,0", "--window", "--title", "side", "--type",
                         "DOCK", "--geometry", "50,1024,1600,0", "--strut",
                         "1650,0,0,0,0,1023,0,0,0,0,0,0"});
    QVERIFY(desktop.inspector().waitForWindowCount(2));
    // Two of a kind.
    desktop.nameDisplay(0, "GSM", "ULTRAWIDE");
    desktop.nameDisplay(1, "GSM", "ULTRAWIDE");
    QVERIFY(waitUntil([&] {
        displays = system.currentDisplays();
        return displays[1].fingerprint.localizedName == u"LG ULTRAWIDE";
    }));
    QCOMPARE(displays[0].fingerprint.localizedName, u"LG ULTRAWIDE"_qs);
    QCOMPARE(displays[0].visibleFrame, QRectF(0, 0, 1600, 994)); // y upward: the top is cut
    QCOMPARE(displays[1].visibleFrame, QRectF(1650, 0, 1230, 1024));
    QCOMPARE(bestDisplay(displays[1].fingerprint, displays)->frame, displays[1].frame);

    // With one display left, panels that no strut tells of are in the work area.
    desktop.unplugDisplay(1);
    desktop.stopWindowManager();
    desktop.inspector().setProperty(desktop.inspector().root(), "_NET_WORKAREA", "CARDINAL",
                                    {0, 30, 1600, 900});
    displays = system.currentDisplays();
    QCOMPARE(displays.size(), 1);
    QCOMPARE(displays[0].visibleFrame, QRectF(0, 94, 1600, 900));
    desktop.unplugDisplay(0);
    QVERIFY(system.currentDisplays().isEmpty());
}

void X11WindowSystemTest::seesPanelsComeChangeAndGo_data()
{
    QTest::addColumn<WindowManager>("windowManager");
    for (const WindowManager windowManager : availableWindowManagers())
        QTest::newRow(windowManagerName(windowManager)) << windowManager;
}

void X11WindowSystemTest::seesPanelsComeChangeAndGo()
{
    QFETCH(WindowManager, windowManager);
    VirtualDesktop desktop(windowManager);
    QVERIFY2(desktop.isReady(), qPrintable(desktop.error()));
    DesktopInspector& inspector = desktop.inspector();
    desktop.startClient({"--title", "plain"});
    const quint32 plain = inspector.waitForWindow(u"plain").id;
    X11WindowSystem system(desktop.displayName(), {}, {});
    const auto freeHeight = [&] { return system.currentDisplays().first().visibleFrame.height(); };
    const auto freeWidth = [&] { return system.currentDisplays().last().visibleFrame.width(); };
    QCOMPARE(freeHeight(), 1024);
    QCOMPARE(freeHeight(), 1024); // and now it knows the desktop
    QProcess& program =
        desktop.startClient({"--title", "panel", "--type", "DOCK", "--geometry", "1600,30,0,0",
                             "--strut", "0,0,30,0,0,0,0,0,0,1599,0,0"});
    const quint32 panel = inspector.waitForWindow(u"panel").id;
    QCOMPARE(freeHeight(), 994);
    const auto reserve = [&](quint32 window, const QList<quint32>& strut) {
        inspector.setProperty(window, "_NET_WM_STRUT_PARTIAL", "CARDINAL", strut);
        (void)inspector.window(window); // the server has it now
    };
    reserve(panel, {0, 0, 50, 0, 0, 0, 0, 0, 0, 1599, 0, 0});
    QCOMPARE(freeHeight(), 974);
    // Between the displays, where the work area of the whole desktop shows nothing of it.
    reserve(panel, {1640, 0, 0, 0, 0, 1023, 0, 0, 0, 0, 0, 0});
    QCOMPARE(freeWidth(), 1240);
    reserve(panel, {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0});
    QCOMPARE(freeWidth(), 1280);
    reserve(panel, {0, 0, 50, 0, 0, 0, 0, 0, 0, 1599, 0, 0});
    QCOMPARE(freeHeight(), 974);
    VirtualDesktop::kill(program);
    QVERIFY(waitUntil([&] { return inspector.windows().size() == 1; }));
    QCOMPARE(freeHeight(), 1024);
    // An ordinary window that reserves space is found once the window manager granted it.
    reserve(plain, {0, 0, 40, 0, 0, 0, 0, 0, 0, 1599, 0, 0});
    QVERIFY(waitUntil([&] { return freeHeight() == 984; }));
    reserve(plain, {});
    QVERIFY(waitUntil([&] { return freeHeight() == 1024; }));
}

void X11WindowSystemTest::countsFromThePrimaryDisplay()
{
    VirtualDesktop desktop(WindowManager::openbox);
    QVERIFY2(desktop.isReady(), qPrintable(desktop.error()));
    desktop.setPrimaryDisplay(1);
    X11WindowSystem system(desktop.displayName(), {}, {});
    const QList<DisplaySnapshot> displays = system.currentDisplays();
    QCOMPARE(displays.size(), 2);
    for (const DisplaySnapshot& display : displays) {
        const bool isRight = display.frame.width() == 1280;
        QCOMPARE(display.frame.topLeft(), QPointF(isRight ? 0 : -1600, 0));
        QCOMPARE(display.fingerprint.isMain, isRight);
    }
    desktop.startClient({"--title", "window", "--geometry", "400,300,1700,200"});
    const InspectedWindow window = desktop.inspector().waitForWindow(u"window");
    const WindowAttributes attributes = windowTitled(system, u"window"_qs);
    QCOMPARE(frameOf(attributes), QRectF(window.frame.translated(-1600, 0)));
    const QRectF wanted(-1500, 40, 500, 400);
    QCOMPARE(system.setWindowFrames({{attributes.handle, wanted}}), QList<bool>{true});
    QCOMPARE(QRectF(desktop.inspector().window(window.id)->frame), wanted.translated(1600, 0));
}

void X11WindowSystemTest::activatesTheTopmostWindow()
{
    VirtualDesktop desktop(WindowManager::openbox);
    QVERIFY2(desktop.isReady(), qPrintable(desktop.error()));
    DesktopInspector& inspector = desktop.inspector();
    desktop.startClient(
        {"--class", "Two", "--title", "a", "--window", "--title", "b", "--window", "--title", "c"});
    QVERIFY(inspector.waitForWindowCount(3));
    for (const auto* title : {u"c", u"a", u"b"}) {
        const quint32 id = inspector.waitForWindow(title).id;
        inspector.activate(id);
        QVERIFY(waitUntil([&] { return inspector.window(id)->isActive; }));
    }
    // Topmost, but put away by the user.
    inspector.minimize(inspector.windowTitled(u"b")->id);
    QVERIFY(waitUntil([&] { return inspector.windowTitled(u"b")->isMinimized; }));
    desktop.startClient({"--class", "Above", "--title", "above"});
    inspector.waitForWindow(u"above");
    inspector.activate(inspector.windowTitled(u"above")->id);
    QVERIFY(waitUntil([&] { return inspector.windowTitled(u"above")->isActive; }));

    X11WindowSystem system(desktop.displayName(), {}, {});
    system.activate(system.runningApplications(u"Two"_qs).first());
    QVERIFY(waitUntil([&] { return inspector.windowTitled(u"a")->isActive; }));
    QVERIFY(inspector.windowTitled(u"b")->isMinimized);
    system.activate({}); // an application without windows: nothing happens
}

void X11WindowSystemTest::trustsOnlyALiveWindowManager()
{
    VirtualDesktop desktop(WindowManager::none);
    QVERIFY2(desktop.isReady(), qPrintable(desktop.error()));
    X11WindowSystem system(desktop.displayName(), {}, {});
    QVERIFY(!system.isTrusted());
    QVERIFY(!system.requestTrust());
    QVERIFY(system.runningApplications().isEmpty());
    for (const WindowManager windowManager : {WindowManager::openbox, WindowManager::xfwm4}) {
        QVERIFY(desktop.startWindowManager(windowManager));
        QVERIFY(system.isTrusted());
        // It leaves its announcement on the root window behind when it is killed.
        desktop.stopWindowManager();
        QVERIFY(waitUntil([&] { return !system.isTrusted(); }));
    }
}

void X11WindowSystemTest::survivesTheEndOfTheServer()
{
    VirtualDesktop desktop(WindowManager::openbox);
    QVERIFY2(desktop.isReady(), qPrintable(desktop.error()));
    desktop.startClient({"--title", "window"});
    desktop.inspector().waitForWindow(u"window");
    X11WindowSystem system(desktop.displayName(), {}, {});
    const QList<RunningApplication> applications = system.runningApplications();
    const WindowHandle handle = applications.first().windows.first();
    desktop.killServer();
    QVERIFY(!system.isTrusted());
    QVERIFY(system.runningApplications().isEmpty());
    QVERIFY(system.runningApplications(u"Scripted"_qs).isEmpty());
    QVERIFY(system.currentDisplays().isEmpty());
    const auto windows = system.readWindows(applications);
    QCOMPARE(windows.size(), 1);
    QVERIFY(windows.first().isEmpty());
    QCOMPARE(system.setWindowFrames({{handle, QRectF(0, 0, 400, 300)}}), QList<bool>{false});
    system.activate(applications.first());

    X11WindowSystem never(desktop.displayName(), {}, {});
    QVERIFY(!never.isTrusted());
    QVERIFY(never.runningApplications().isEmpty());
    QVERIFY(never.currentDisplays().isEmpty());
    QCOMPARE(never.setWindowFrames({{handle, QRectF(0, 0, 400, 300)}}), QList<bool>{false});
}

QTEST_GUILESS_MAIN(X11WindowSystemTest)
#include "X11WindowSystemTest.moc"
