// SPDX-License-Identifier: MIT
//
// The adapter for sway on a real one without a screen: what it reads, where it puts windows, and
// that what is tiled stays so.

#include "platform/sway/SwayWindowSystem.h"
#include "platform/sway/SwayHotKeys.h"
#include "platform/sway/SwaySession.h"
#include "support/Patience.h"
#include "support/SwayDesktop.h"

#include "lab/VirtualDesktop.h"

#include <QTest>

#include <csignal>

using namespace Qt::StringLiterals;

using namespace trovell;
using namespace trovell::test;

namespace {

using Applications = DesktopQuestion::Applications;
using Outcomes = QList<FrameOutcome>;

constexpr WindowStates noStates;
constexpr WindowStates tiled = WindowState::tiled;

DesktopWindow windowTitled(SwayWindowSystem& system, const QString& title)
{
    const auto snapshot = system.ask({.applications = Applications::all, .windows = true}).result();
    for (const RunningApplication& application : snapshot.applications) {
        for (const DesktopWindow& window : application.windows) {
            if (window.title == title)
                return window;
        }
    }
    return {};
}

/// A desktop with a window of that title each, and the adapter.
struct SwayWorld {
    explicit SwayWorld(const QStringList& titles, const QByteArray& configuration = {})
        : desktop(configuration)
    {
        for (const QString& title : titles)
            desktop.openWindow(title);
    }

    DesktopWindow window(const QString& title) { return windowTitled(system, title); }
    Outcomes setFrames(const QList<FrameRequest>& requests)
    {
        return system.setFrames(requests).result();
    }

    SwayDesktop desktop;
    SwayWindowSystem system{desktop.socketPath(), {}, {}, {}};
};

} // namespace

#define VERIFY_READY(world) QVERIFY2((world).desktop.isReady(), (world).desktop.log().constData())

class SwayWindowSystemTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void describesTheDesktop();
    void placesFloatingWindowsExactly();
    void bringsFloatingWindowsToWorkspacesAndStates();
    void tiledWindowsStayTiledAndReturn();
    void arrangesWhatSeveralPassesWant();
    void aLateClientHoldsUpNobody();
    void activatesAndStacks();
    void endsWithTheDesktop();
    void pressesReachTheProgram();
    void keysOfTheUserAreRefused();
    void theSessionInViewCounts();
    void tiledWindowsReturnUnderI3();
};

void SwayWindowSystemTest::describesTheDesktop()
{
    SwayWorld world({u"one"_s, u"two"_s}, "bindsym Mod4+m workspace mail\n"
                                          "bindsym Mod4+3 workspace \"3: web\"\n");
    VERIFY_READY(world);
    world.desktop.command("[app_id=two] move container to workspace mail");
    const DesktopSnapshot snapshot =
        world.system.ask({.applications = Applications::all, .windows = true, .displays = true})
            .result();
    QCOMPARE(snapshot.control, WindowControl::available);
    QCOMPARE(snapshot.displays.size(), 2);
    QCOMPARE(snapshot.displays[1].name, u"HEADLESS-2"_s);
    QCOMPARE(snapshot.displays[1].frame, QRectF(1280, 0, 1280, 720));
    QVERIFY(snapshot.displays[0].isPrimary && !snapshot.displays[1].isPrimary);
    QCOMPARE(snapshot.virtualDesktopNames.size(), 11);
    QCOMPARE(snapshot.virtualDesktopNames[2], u"3: web"_s);
    QCOMPARE(snapshot.applications.size(), 2);
    QCOMPARE(snapshot.applications[0].bundleIdentifier, u"one"_s);
    QVERIFY(snapshot.applications[0].processIdentifier > 0);
    QCOMPARE(world.window(u"one"_s).virtualDesktop, snapshot.currentVirtualDesktop);
    QCOMPARE(world.window(u"two"_s).virtualDesktop, 10);
    QCOMPARE(world.window(u"two"_s).states, tiled);
}

void SwayWindowSystemTest::placesFloatingWindowsExactly()
{
    SwayWorld world({u"one"_s, u"two"_s, u"three"_s}, "for_window [app_id=.*] floating enable");
    VERIFY_READY(world);
    for (int round = 0; round < 20; ++round) {
        QList<FrameRequest> requests;
        for (const QString& title : {u"one"_s, u"two"_s, u"three"_s}) {
            const auto step = double(requests.size());
            // Every other time on the other output.
            requests.append({world.window(title).id,
                             {60 + 40 * step + 1280 * (round % 2), 50 + 30 * step,
                              400 + 11 * step + round, 300 + 7 * step}});
        }
        QCOMPARE(world.setFrames(requests), Outcomes(3, FrameOutcome::taken));
        QCOMPARE(world.window(u"one"_s).frame, requests[0].frame);
        QCOMPARE(world.window(u"three"_s).frame, requests[2].frame);
        QCOMPARE(world.window(u"three"_s).states, noStates);
    }
    QCOMPARE(world.setFrames({{WindowId(999, 1), {0, 0, 300, 200}},
                              {world.window(u"one"_s).id, {0, 0, qQNaN(), 200}}}),
             Outcomes(2, FrameOutcome::refused));
}

void SwayWindowSystemTest::bringsFloatingWindowsToWorkspacesAndStates()
{
    SwayWorld world({u"far"_s, u"full"_s, u"away"_s, u"pinned"_s, u"stays"_s},
                    "for_window [app_id=.*] floating enable");
    VERIFY_READY(world);
    const auto id = [&](const QString& title) { return world.window(title).id; };
    const QRectF frame(1400, 60, 500, 400);
    const QRectF left(200, 60, 500, 400);
    const QList<FrameRequest> there = {
        {id(u"far"_s), frame, noStates, DesktopPlace{.index = 6}},
        {id(u"full"_s), frame, WindowState::fullScreen, DesktopPlace{.index = 7}},
        {id(u"away"_s), left, WindowState::minimized, DesktopPlace{.index = 0}},
        {id(u"pinned"_s), left, noStates, DesktopPlace{.isAll = true}},
    };
    QList<FrameRequest> back;
    for (const FrameRequest& request : there)
        back.append({request.window, left, noStates, DesktopPlace{.index = 0}});
    for (int round = 0; round < 3; ++round) {
        QCOMPARE(world.setFrames(there), Outcomes(4, FrameOutcome::taken));
        QCOMPARE(world.window(u"far"_s).frame, frame);
        QCOMPARE(world.window(u"far"_s).virtualDesktop, 6);
        QCOMPARE(world.window(u"full"_s).states, WindowStates(WindowState::fullScreen));
        QCOMPARE(world.window(u"full"_s).frame, QRectF(1280, 0, 1280, 720));
        QCOMPARE(world.window(u"away"_s).states, WindowStates(WindowState::minimized));
        QVERIFY(world.window(u"pinned"_s).isOnAllDesktops);
        // Nobody is shown another desktop by that.
        QCOMPARE(world.system.ask({}).result().currentVirtualDesktop, 0);
        QCOMPARE(world.setFrames(back), Outcomes(4, FrameOutcome::taken));
        for (const QString& title : {u"far"_s, u"full"_s, u"away"_s, u"pinned"_s}) {
            QCOMPARE(world.window(title).frame, left);
            QCOMPARE(world.window(title).states, noStates);
            QCOMPARE(world.window(title).virtualDesktop, 0);
        }
    }
    world.system.showVirtualDesktop(4).waitForFinished();
    QCOMPARE(world.system.ask({}).result().currentVirtualDesktop, 4);
}

void SwayWindowSystemTest::tiledWindowsStayTiledAndReturn()
{
    SwayWorld world({u"one"_s, u"two"_s, u"three"_s});
    VERIFY_READY(world);
    world.desktop.command("[app_id=one] resize grow right 150 px");
    QList<FrameRequest> requests;
    for (const QString& title : {u"one"_s, u"two"_s, u"three"_s}) {
        const DesktopWindow window = world.window(title);
        QCOMPARE(window.states, tiled);
        requests.append({window.id, *window.frame, window.states, DesktopPlace{.index = 0}});
    }
    const QRectF before = *world.window(u"one"_s).frame;
    // Somewhere else, in another order and with other sizes.
    world.desktop.command("[app_id=two] move container to workspace number 8");
    world.desktop.command("[app_id=three] move container to output HEADLESS-2");
    world.desktop.command("[app_id=one] move container to workspace number 9");
    QCOMPARE(world.setFrames(requests), Outcomes(3, FrameOutcome::taken));
    QCOMPARE(world.window(u"one"_s).states, tiled);
    QVERIFY(std::abs(world.window(u"one"_s).frame->width() - before.width()) <= 1);
    QVERIFY(world.window(u"two"_s).frame->x() < world.window(u"three"_s).frame->x());

    // A frame that the layout does not have.
    const FrameRequest impossible{requests[0].window, QRectF(300, 200, 400, 300)};
    QCOMPARE(world.setFrames({impossible}), Outcomes{FrameOutcome::tiled});
    QCOMPARE(world.window(u"one"_s).states, tiled);
    // Saved floating, and saved tiled again.
    const FrameRequest floating{requests[0].window, QRectF(300, 200, 400, 300), noStates};
    QCOMPARE(world.setFrames({floating}), Outcomes{FrameOutcome::taken});
    QCOMPARE(world.window(u"one"_s).frame, floating.frame);
    QCOMPARE(world.setFrames(requests), Outcomes(3, FrameOutcome::taken));
    QVERIFY(std::abs(world.window(u"one"_s).frame->width() - before.width()) <= 1);
}

void SwayWindowSystemTest::arrangesWhatSeveralPassesWant()
{
    SwayWorld world({u"right"_s, u"left"_s});
    VERIFY_READY(world);
    const QFuture<Outcomes> first =
        world.system.setFrames({{world.window(u"right"_s).id, {900, 0, 380, 720}, tiled}});
    const QFuture<Outcomes> second =
        world.system.setFrames({{world.window(u"left"_s).id, {0, 0, 900, 720}, tiled}});
    (void)first.result();
    (void)second.result();
    QCOMPARE(world.window(u"left"_s).frame->x(), 0.0);
    QVERIFY(std::abs(world.window(u"right"_s).frame->x() - 900) <= 1);
    QCOMPARE(world.setFrames({{world.window(u"right"_s).id, {900, 0, 380, 720}, tiled}}),
             Outcomes{FrameOutcome::taken});
}

void SwayWindowSystemTest::aLateClientHoldsUpNobody()
{
    SwayWorld world({u"lively"_s}, "for_window [app_id=.*] floating enable");
    VERIFY_READY(world);
    const QProcess& late = world.desktop.openWindow(u"late"_s);
    const FrameRequest lively{world.window(u"lively"_s).id, {100, 100, 500, 400}};
    const FrameRequest stopped{world.window(u"late"_s).id, {300, 200, 450, 350}};
    ::kill(pid_t(late.processId()), SIGSTOP);
    QCOMPARE(world.setFrames({stopped, lively})[1], FrameOutcome::taken);
    ::kill(pid_t(late.processId()), SIGCONT);
    QTRY_COMPARE(world.setFrames({stopped}), Outcomes{FrameOutcome::taken});
    QTRY_COMPARE(world.window(u"late"_s).frame, stopped.frame);
}

void SwayWindowSystemTest::activatesAndStacks()
{
    SwayWorld world({u"one"_s, u"two"_s, u"three"_s}, "for_window [app_id=.*] floating enable");
    VERIFY_READY(world);
    const auto position = [&](const QString& title) {
        return world.window(title).stackingPosition;
    };
    world.system.activate({u"one"_s, u"gone"_s, u"two"_s}).waitForFinished();
    QVERIFY(position(u"one"_s) > position(u"two"_s) && position(u"two"_s) > position(u"three"_s));
    const auto id = [&](const QString& title) { return world.window(title).id; };
    world.system.restack({id(u"two"_s), id(u"three"_s)}).waitForFinished();
    QVERIFY(position(u"three"_s) > position(u"two"_s));
    world.desktop.command("[app_id=one] move scratchpad");
    QCOMPARE(world.window(u"one"_s).states, WindowStates(WindowState::minimized));
    world.system.activate({u"one"_s}).waitForFinished();
    QCOMPARE(world.window(u"one"_s).states, noStates);
}

void SwayWindowSystemTest::endsWithTheDesktop()
{
    SwayWorld world({u"one"_s}, "for_window [app_id=.*] floating enable");
    VERIFY_READY(world);
    const WindowId id = world.window(u"one"_s).id;
    const auto pass = world.system.setFrames({{id, {100, 100, 500, 400}}});
    world.desktop.kill();
    QCOMPARE(pass.result().size(), 1);
    QCOMPARE(world.setFrames({{id, {50, 50, 300, 300}}}), Outcomes{FrameOutcome::unanswered});
    QCOMPARE(world.system.ask({}).result().control, WindowControl::notAnswering);
    world.system.activate({u"one"_s}).waitForFinished();
    SwayHotKeys keys(world.desktop.socketPath());
    const QList<HotKey> hotKeys{{1, Qt::CTRL | Qt::ALT | Qt::Key_1}};
    QCOMPARE(keys.setHotKeys(hotKeys, [](quint32) {}).result(), QList<quint32>());
}

void SwayWindowSystemTest::pressesReachTheProgram()
{
    SwayWorld world({});
    VERIFY_READY(world);
    QList<quint32> pressed;
    const auto press = [&](const QString& key) {
        return world.desktop.run(u"wtype"_s, {u"-M"_s, u"ctrl"_s, u"-M"_s, u"alt"_s, key, u"-m"_s,
                                              u"alt"_s, u"-m"_s, u"ctrl"_s});
    };
    const QList<HotKey> hotKeys{{7, Qt::CTRL | Qt::ALT | Qt::Key_1},
                                {8, Qt::CTRL | Qt::ALT | Qt::Key_2},
                                {9, Qt::CTRL | Qt::ALT | Qt::Key_2}};
    {
        SwayHotKeys keys(world.desktop.socketPath());
        const auto note = [&](quint32 number) { pressed.append(number); };
        QCOMPARE(keys.setHotKeys(hotKeys, note).result(), (QList<quint32>{7, 8}));
        QVERIFY(press(u"1"_s) && press(u"2"_s));
        QTRY_COMPARE(pressed, (QList<quint32>{7, 8}));
        // The configuration read anew drops the bindings of programs.
        world.desktop.command("reload");
        QTRY_VERIFY(press(u"1"_s) && pressed.size() > 2);
        QList<quint32> pressedNow;
        const auto noteNow = [&](quint32 number) { pressedNow.append(number); };
        QCOMPARE(keys.setHotKeys({hotKeys[1]}, noteNow).result(), QList<quint32>{8});
        QVERIFY(press(u"1"_s) && press(u"2"_s));
        QTRY_COMPARE(pressedNow, QList<quint32>{8});
    }
    // Given back: there is nothing left to unbind.
    SwayConnection connection(world.desktop.socketPath());
    const auto answer =
        connection.ask(SwayConnection::Question::runCommand, "unbindsym Ctrl+Mod1+2");
    QVERIFY(answer && !(*answer)[0][u"success"].toBool());
}

void SwayWindowSystemTest::keysOfTheUserAreRefused()
{
    SwayWorld world({}, "set $both Control+Alt\nbindsym $both+2 exec true\n"
                        "bindcode Ctrl+Mod1+12 nop\nmode resize {\nbindsym Ctrl+Mod1+1 nop\n}\n");
    VERIFY_READY(world);
    SwayHotKeys keys(world.desktop.socketPath());
    const QList<HotKey> hotKeys{{1, Qt::CTRL | Qt::ALT | Qt::Key_1},
                                {2, Qt::CTRL | Qt::ALT | Qt::Key_2},
                                {3, Qt::CTRL | Qt::ALT | Qt::Key_3}};
    QCOMPARE(keys.setHotKeys(hotKeys, [](quint32) {}).result(), QList<quint32>{1});
}

void SwayWindowSystemTest::theSessionInViewCounts()
{
    SwayDesktop ours;
    SwayDesktop other;
    QVERIFY(ours.isReady() && other.isReady());
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(ours.runtimeFolder()));
    const SessionFacts session{u"wayland"_s, u"wayland-1"_s, u":0"_s};
    qputenv("SWAYSOCK", ours.socketPath());
    QCOMPARE(swaySocket(session), ours.socketPath());
    qputenv("SWAYSOCK", other.socketPath());
    QCOMPARE(swaySocket(session), QByteArray());
    qputenv("SWAYSOCK", "/nowhere");
    QCOMPARE(swaySocket(session), QByteArray());
}

void SwayWindowSystemTest::tiledWindowsReturnUnderI3()
{
    lab::VirtualDesktop desktop(lab::WindowManager::i3);
    QVERIFY2(desktop.isReady(), qPrintable(desktop.error()));
    const QByteArray socketPath =
        i3Socket({u"x11"_s, {}, QString::fromLatin1(desktop.displayName())});
    QVERIFY(!socketPath.isEmpty());
    desktop.startClient({"--title", "one", "--window", "--title", "two"});
    QVERIFY(desktop.inspector().waitForWindowCount(2));
    SwayWindowSystem system(socketPath, {}, {}, {});
    SwayConnection person(socketPath);
    QTRY_VERIFY(windowTitled(system, u"two"_s).frame);
    person.run({"[title=one] resize grow right 150 px"});
    QList<FrameRequest> requests;
    for (const QString& title : {u"one"_s, u"two"_s}) {
        const DesktopWindow window = windowTitled(system, title);
        QCOMPARE(window.states, tiled);
        requests.append({window.id, *window.frame, tiled, DesktopPlace{.index = 0}});
    }
    person.run({"[title=one] move container to workspace number 2",
                "[title=two] move container to workspace number 7"});
    QCOMPARE(system.setFrames(requests).result(), Outcomes(2, FrameOutcome::taken));
    QCOMPARE(windowTitled(system, u"one"_s).virtualDesktop, 0);
    QVERIFY(windowTitled(system, u"one"_s).frame->x() < windowTitled(system, u"two"_s).frame->x());
}

QTEST_GUILESS_MAIN(SwayWindowSystemTest)
#include "SwayWindowSystemTest.moc"
