// Saved layouts on real servers under real window managers: everything comes back where it stood.

#include "support/LayoutSession.h"

#include <QTest>

using namespace trovell;
using namespace trovell::test;
using namespace std::chrono_literals;

namespace {

void addWindowManagers(const QList<WindowManager>& windowManagers)
{
    QTest::addColumn<WindowManager>("windowManager");
    for (const WindowManager windowManager : windowManagers)
        QTest::addRow("%s", windowManagerName(windowManager)) << windowManager;
}

QStringList restoredLines(const QMap<QString, QRect>& frames)
{
    QStringList lines;
    for (auto i = frames.keyBegin(); i != frames.keyEnd(); ++i)
        lines.append(*i + u": restored"_qs);
    return lines;
}

void scatter(VirtualDesktop& desktop)
{
    DesktopInspector& inspector = desktop.inspector();
    int offset = 0;
    const QList<InspectedWindow> windows = inspector.windows();
    for (const InspectedWindow& window : windows) {
        offset += 37;
        inspector.moveWindow(window.id, QRect(1500 - 5 * offset, 30 + offset, 260 + offset, 200));
    }
    for (const InspectedWindow& window : windows)
        inspector.waitForRest(window.id);
}

/// Windows of several kinds on both displays; all have different titles.
void openWindows(VirtualDesktop& desktop)
{
    desktop.startClient({"--class", "Plain", "--title", "Plain", "--geometry", "500,350,60,80"});
    desktop.startClient({"--class", "Terminal", "--title", "Terminal", "--geometry",
                         "484,316,700,100", "--increments", "6,13", "--base", "4,4"});
    desktop.startClient({"--class", "Shadowed", "--title", "Shadowed", "--geometry",
                         "552,452,100,500", "--gtk-frame-extents", "26,26,23,29", "--undecorated"});
    desktop.startClient({"--class", "Pair", "--title", "Ünïcode — 日本 ✓", "--geometry",
                         "420,300,1700,90", "--window", "--title", "Other", "--geometry",
                         "380,260,2100,600"});
    QVERIFY(desktop.inspector().waitForWindowCount(5));
    const QList<InspectedWindow> windows = desktop.inspector().windows();
    for (const InspectedWindow& window : windows)
        desktop.inspector().waitForRest(window.id);
}

#define START_DESKTOP(windowManager)                                                               \
    VirtualDesktop desktop(windowManager);                                                         \
    QVERIFY2(desktop.isReady(), qPrintable(desktop.error()));                                      \
    [[maybe_unused]] DesktopInspector& inspector = desktop.inspector()

} // namespace

class LayoutTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void bringsEveryWindowBack_data() { addWindowManagers(availableWindowManagers()); }
    void bringsEveryWindowBack();
    void leavesMinimisedWindowsAlone_data() { addSureWindowManagers(); }
    void leavesMinimisedWindowsAlone();
    void findsALostDisplaysWindowsARoom_data() { addSureWindowManagers(); }
    void findsALostDisplaysWindowsARoom();
    void keepsProportionsAtAnotherResolution_data() { addSureWindowManagers(); }
    void keepsProportionsAtAnotherResolution();
    void tellsIdenticalDisplaysApart_data() { addSureWindowManagers(); }
    void tellsIdenticalDisplaysApart();
    void tellsWindowsOfOneTitleApart();
    void waitsForALateWindow();
    void winsOverAProgramThatPutsItsWindowBack_data() { addSureWindowManagers(); }
    void winsOverAProgramThatPutsItsWindowBack();
    void reportsAWindowThatNeverComes();
    void survivesAWindowThatVanishes();
    void doesNotWaitForAHungProgram_data() { addSureWindowManagers(); }
    void doesNotWaitForAHungProgram();
    void opensItemsWithoutAWindowManager();
    void doesNotDrift_data() { addSureWindowManagers(); }
    void doesNotDrift();

private:
    static void addSureWindowManagers()
    {
        addWindowManagers({WindowManager::openbox, WindowManager::xfwm4});
    }
};

void LayoutTest::bringsEveryWindowBack()
{
    QFETCH(WindowManager, windowManager);
    START_DESKTOP(windowManager);
    openWindows(desktop);
    LayoutSession session(desktop);
    const auto saved = framesByTitle(desktop);
    TrovellWorkspace* workspace = session.capture();
    QVERIFY(workspace);
    QCOMPARE(workspace->placementCount(), 5);

    scatter(desktop);
    inspector.setMaximized(inspector.windowTitled(u"Plain")->id, true);
    inspector.setFullScreen(inspector.windowTitled(u"Other")->id, true);
    QVERIFY(waitUntil([&] { return inspector.windowTitled(u"Other")->isFullScreen; }));
    QVERIFY(waitUntil([&] { return inspector.windowTitled(u"Plain")->isMaximized; }));
    QVERIFY(framesByTitle(desktop) != saved);

    QCOMPARE(session.start(*workspace), restoredLines(saved));
    QCOMPARE(framesByTitle(desktop), saved);
}

void LayoutTest::leavesMinimisedWindowsAlone()
{
    QFETCH(WindowManager, windowManager);
    START_DESKTOP(windowManager);
    openWindows(desktop);
    LayoutSession session(desktop);
    const auto saved = framesByTitle(desktop);
    TrovellWorkspace* workspace = session.capture();
    const quint32 minimised = inspector.windowTitled(u"Terminal")->id;
    scatter(desktop);
    inspector.minimize(minimised);
    QVERIFY(waitUntil([&] { return inspector.window(minimised)->isMinimized; }));

    QStringList expected = restoredLines(saved);
    expected.replace(expected.indexOf(u"Terminal: restored"_qs),
                     u"Terminal: timedOut A safe matching window was not found yet."_qs);
    QCOMPARE(session.start(*workspace, 1), expected);
    QVERIFY(inspector.window(minimised)->isMinimized);
    // Once it is there again, it is put back like every other.
    inspector.activate(minimised);
    QVERIFY(waitUntil([&] { return !inspector.window(minimised)->isMinimized; }));
    QCOMPARE(session.start(*workspace), restoredLines(saved));
    QCOMPARE(framesByTitle(desktop), saved);
}

void LayoutTest::findsALostDisplaysWindowsARoom()
{
    QFETCH(WindowManager, windowManager);
    START_DESKTOP(windowManager);
    openWindows(desktop);
    LayoutSession session(desktop);
    const auto saved = framesByTitle(desktop);
    TrovellWorkspace* workspace = session.capture();
    desktop.unplugDisplay(1);
    scatter(desktop);

    QCOMPARE(session.start(*workspace), restoredLines(saved));
    const auto frames = framesByTitle(desktop);
    for (const QString& title : saved.keys()) {
        QVERIFY2(desktop.display(0).contains(frames.value(title)), qPrintable(title));
        if (desktop.display(0).contains(saved.value(title)))
            QCOMPARE(frames.value(title), saved.value(title));
    }
    // The display comes back, and so does everything on it.
    desktop.plugDisplay(1, QSize(1280, 1024), QPoint(1600, 0));
    QCOMPARE(session.start(*workspace), restoredLines(saved));
    QCOMPARE(framesByTitle(desktop), saved);
}

void LayoutTest::keepsProportionsAtAnotherResolution()
{
    QFETCH(WindowManager, windowManager);
    START_DESKTOP(windowManager);
    desktop.startClient({"--title", "Half", "--undecorated", "--geometry", "640,512,1920,256"});
    inspector.waitForWindow(u"Half");
    LayoutSession session(desktop);
    TrovellWorkspace* workspace = session.capture();
    QVERIFY(workspace);
    desktop.unplugDisplay(1);
    desktop.plugDisplay(1, QSize(1024, 768), QPoint(1600, 0));
    QCOMPARE(session.start(*workspace), QStringList{u"Half: restored"_qs});
    // Half the display each way, a quarter from its left and top.
    QCOMPARE(inspector.windowTitled(u"Half")->frame, QRect(1600 + 256, 192, 512, 384));
}

void LayoutTest::tellsIdenticalDisplaysApart()
{
    QFETCH(WindowManager, windowManager);
    START_DESKTOP(windowManager);
    const QSize size(1280, 1024);
    desktop.unplugDisplay(1);
    desktop.plugDisplay(0, size, QPoint(0, 0));
    desktop.plugDisplay(1, size, QPoint(1280, 0));
    for (const int display : {0, 1})
        desktop.nameDisplay(display, "TRV", "Twin");
    openWindows(desktop);
    LayoutSession session(desktop);
    const auto displays = session.windowSystem().currentDisplays();
    QCOMPARE(displays.size(), 2);
    QCOMPARE(displays.at(0).fingerprint.localizedName, displays.at(1).fingerprint.localizedName);
    const auto saved = framesByTitle(desktop);
    TrovellWorkspace* workspace = session.capture();

    // The cables change places: the left one is now the second output.
    desktop.plugDisplay(1, size, QPoint(0, 0));
    desktop.plugDisplay(0, size, QPoint(1280, 0));
    desktop.setPrimaryDisplay(1);
    scatter(desktop);
    QCOMPARE(session.start(*workspace), restoredLines(saved));
    QCOMPARE(framesByTitle(desktop), saved);
}

void LayoutTest::tellsWindowsOfOneTitleApart()
{
    START_DESKTOP(WindowManager::openbox);
    desktop.startClient({"--title", "Notes", "--geometry", "400,300,100,100", "--window", "--title",
                         "Notes", "--geometry", "500,350,900,400"});
    QVERIFY(inspector.waitForWindowCount(2));
    LayoutSession session(desktop);
    const auto saved = inspector.windows();
    TrovellWorkspace* workspace = session.capture();
    scatter(desktop);
    QCOMPARE(session.start(*workspace),
             (QStringList{u"Notes: restored"_qs, u"Notes: restored"_qs}));
    const auto now = inspector.windows();
    for (qsizetype index = 0; index < saved.size(); ++index)
        QCOMPARE(now.at(index).frame, saved.at(index).frame);
}

void LayoutTest::waitsForALateWindow()
{
    START_DESKTOP(WindowManager::openbox);
    QProcess& first = desktop.startClient(
        {"--class", "Late", "--title", "Late", "--geometry", "400,300,800,300"});
    const QRect saved = inspector.waitForWindow(u"Late").frame;
    LayoutSession session(desktop);
    TrovellWorkspace* workspace = session.capture();
    VirtualDesktop::kill(first);
    QVERIFY(waitUntil([&] { return inspector.windows().isEmpty(); }));
    desktop.startClient({"--class", "Late", "--title", "Late", "--geometry", "300,200,10,10",
                         "--map-after", "2000"});
    QCOMPARE(session.start(*workspace), QStringList{u"Late: restored"_qs});
    QCOMPARE(inspector.windowTitled(u"Late")->frame, saved);
}

void LayoutTest::winsOverAProgramThatPutsItsWindowBack()
{
    QFETCH(WindowManager, windowManager);
    START_DESKTOP(windowManager);
    QProcess& first = desktop.startClient(
        {"--class", "Stubborn", "--title", "Stubborn", "--geometry", "400,300,800,300"});
    const QRect saved = inspector.waitForWindow(u"Stubborn").frame;
    LayoutSession session(desktop);
    TrovellWorkspace* workspace = session.capture();
    VirtualDesktop::kill(first);
    QVERIFY(waitUntil([&] { return inspector.windows().isEmpty(); }));
    desktop.startClient({"--class", "Stubborn", "--title", "Stubborn", "--geometry",
                         "300,200,40,40", "--put-back-after", "400"});
    QCOMPARE(session.start(*workspace), QStringList{u"Stubborn: restored"_qs});
    // It does put itself back, and that does not last.
    QTest::qWait(600);
    const quint32 window = inspector.windowTitled(u"Stubborn")->id;
    QVERIFY(waitUntil([&] { return inspector.window(window)->frame == saved; }, 1s));
    QTest::qWait(500);
    QCOMPARE(inspector.window(window)->frame, saved);
}

void LayoutTest::reportsAWindowThatNeverComes()
{
    START_DESKTOP(WindowManager::openbox);
    QProcess& gone = desktop.startClient({"--class", "Gone", "--title", "Gone"});
    QProcess& other = desktop.startClient({"--class", "Renamed", "--title", "Alpha Beta"});
    QVERIFY(inspector.waitForWindowCount(2));
    LayoutSession session(desktop);
    TrovellWorkspace* workspace = session.capture();
    VirtualDesktop::kill(gone);
    VirtualDesktop::kill(other);
    desktop.startClient({"--class", "Renamed", "--title", "Gamma Delta"});
    inspector.waitForWindow(u"Gamma Delta");
    QCOMPARE(session.start(*workspace, 1),
             (QStringList{u"Alpha Beta: timedOut A safe matching window was not found yet."_qs,
                          u"Gone: timedOut The application is not running yet."_qs}));
}

void LayoutTest::survivesAWindowThatVanishes()
{
    START_DESKTOP(WindowManager::openbox);
    desktop.startClient({"--class", "Pair", "--title", "Stays", "--geometry", "400,300,100,100",
                         "--window", "--title", "Vanishes", "--vanish-when-moved"});
    QVERIFY(inspector.waitForWindowCount(2));
    LayoutSession session(desktop);
    const QRect saved = inspector.windowTitled(u"Stays")->frame;
    TrovellWorkspace* workspace = session.capture();
    inspector.moveWindow(inspector.windowTitled(u"Stays")->id, QRect(700, 500, 300, 200));
    inspector.waitForRest(inspector.windowTitled(u"Stays")->id);
    // The program takes what happens in its first moments for the window manager's placing.
    QTest::qWait(400);
    // Its placement asks for another place than it has now, so that it is moved, and so vanishes.
    const QList<WindowPlacement*> placements = workspace->sortedPlacements();
    for (WindowPlacement* placement : placements) {
        if (placement->windowTitleHint() == u"Vanishes"_qs)
            placement->setNormalizedX(placement->normalizedX() + 0.1);
    }
    // Whether it vanished before or after it had arrived is up to chance.
    QStringList lines = session.start(*workspace, 1);
    QVERIFY(lines.removeOne(u"Pair: failed macOS refused the window position change."_qs) ||
            lines.removeOne(u"Vanishes: restored"_qs));
    QCOMPARE(lines, QStringList{u"Stays: restored"_qs});
    QCOMPARE(inspector.windowTitled(u"Stays")->frame, saved);
    QVERIFY(waitUntil([&] { return !inspector.windowTitled(u"Vanishes"); }));
}

void LayoutTest::doesNotWaitForAHungProgram()
{
    QFETCH(WindowManager, windowManager);
    START_DESKTOP(windowManager);
    // A toolkit's window takes part in every protocol with its window manager, and so can hang it.
    QProcess& hung = desktop.start("mousepad", {"--disable-server"});
    inspector.waitForWindowOfClass(u"Mousepad");
    openWindows(desktop);
    LayoutSession session(desktop);
    auto saved = framesByTitle(desktop);
    TrovellWorkspace* workspace = session.capture();
    QVERIFY(workspace);
    scatter(desktop);
    VirtualDesktop::freeze(hung);

    QStringList lines = session.start(*workspace, 3);
    VirtualDesktop::thaw(hung);
    const auto isHungLine = [](const QString& line) { return line.contains(u"Mousepad"); };
    QCOMPARE(lines.removeIf(isHungLine), 1);
    saved.removeIf([](const auto& entry) { return entry.key().contains(u"Mousepad"); });
    QCOMPARE(lines, restoredLines(saved));
    auto now = framesByTitle(desktop);
    now.removeIf([](const auto& entry) { return entry.key().contains(u"Mousepad"); });
    QCOMPARE(now, saved);
}

void LayoutTest::opensItemsWithoutAWindowManager()
{
    START_DESKTOP(WindowManager::openbox);
    openWindows(desktop);
    LayoutSession session(desktop);
    TrovellWorkspace* workspace = session.capture();
    QVERIFY(workspace);
    WorkspaceItemValues item;
    item.typeRawValue = rawValue(WorkspaceItemType::file);
    item.displayName = u"Missing"_qs;
    item.urlString = u"file:///nowhere/at-all"_qs;
    workspace->appendItem(std::make_unique<WorkspaceItem>(item));
    desktop.stopWindowManager();
    QVERIFY(!session.windowSystem().isTrusted());
    QCOMPARE(session.start(*workspace),
             (QStringList{u"Missing: skippedMissingResource file:///nowhere/at-all could not be "
                          "found. Use Locate Again to update it."_qs,
                          u"Window layout: skippedNoPermission Grant Accessibility access to "
                          "restore saved windows."_qs}));
    QVERIFY(desktop.startWindowManager(WindowManager::openbox));
    QVERIFY(session.windowSystem().isTrusted());
}

void LayoutTest::doesNotDrift()
{
    QFETCH(WindowManager, windowManager);
    START_DESKTOP(windowManager);
    openWindows(desktop);
    desktop.start("xterm", {"-T", "Shell", "-geometry", "83x27+900+520"});
    desktop.start("featherpad", {"--standalone"});
    desktop.start("gnome-calculator", {});
    QVERIFY(inspector.waitForWindowCount(8));
    const QList<InspectedWindow> windows = inspector.windows();
    for (const InspectedWindow& window : windows)
        inspector.waitForRest(window.id);
    LayoutSession session(desktop);
    const auto saved = framesByTitle(desktop);
    for (int cycle = 0; cycle < 50; ++cycle) {
        TrovellWorkspace* workspace = session.capture();
        QVERIFY(workspace);
        // Mostly nothing has to move; now and then everything has to.
        if (cycle % 10 == 9)
            scatter(desktop);
        QCOMPARE(session.start(*workspace), restoredLines(saved));
        QCOMPARE(framesByTitle(desktop), saved);
    }
}

QTEST_GUILESS_MAIN(LayoutTest)
#include "LayoutTest.moc"
