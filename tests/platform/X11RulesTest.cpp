// SPDX-License-Identifier: MIT
//
// What is known of windows, panels, monitors and keyboards without asking a server.
#include "lab/Files.h"
#include "lab/MakeEdid.h"
#include "platform/desktop/Activation.h"
#include "platform/desktop/ApplicationGrouping.h"
#include "platform/x11/MonitorName.h"
#include "platform/x11/X11KeyboardLayout.h"
#include "platform/x11/X11WindowKind.h"
#include "platform/x11/X11WorkArea.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

using namespace Qt::StringLiterals;

using namespace trovell;
using trovell::lab::makeEdid;

namespace {

// Two displays side by side, the right one lower and shorter; the X screen is the box around both.
constexpr PixelRectangle left = {0, 0, 1600, 1024};
constexpr PixelRectangle right = {1600, 200, 1280, 1024};
constexpr QSize screen = {2880, 1224};

IdentifiedWindow window(quint64 id, qint32 process, const QString& identifier)
{
    return {{0, id}, WindowKind::standard, process, {identifier, identifier + u" name"_s, {}}};
}

constexpr quint32 altLeft = 0xffe9;
constexpr quint32 altRight = 0xffea;
constexpr quint32 numLock = 0xff7f;
constexpr quint32 scrollLock = 0xff14;

/// Four keys with two levels each, the keycodes 10 to 13, of which one sets a modifier.
X11KeyboardLayout layout(const QList<quint32>& keysyms, qsizetype modifierIndex = 3,
                         quint8 modifierKeycode = 0)
{
    QList<quint8> modifierKeycodes(16, 0);
    modifierKeycodes[2 * modifierIndex + 1] = modifierKeycode;
    return {10, 2, keysyms, modifierKeycodes};
}

} // namespace

class X11RulesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void monitorIsNamedByManufacturerAndModel()
    {
        const auto name = [](const QByteArray& edid) {
            return monitorName(edid, "\nDEL\tDell Inc.\nSAM\tSamsung Electric Co., Ltd.\n"
                                     "HWP\tHewlett Packard\n");
        };
        QCOMPARE(name(makeEdid("DEL", "DELL U2720Q")), u"DELL U2720Q"_s);
        QCOMPARE(name(makeEdid("DEL", "U2720Q")), u"Dell U2720Q"_s);
        QCOMPARE(name(makeEdid("SAM", "", 0x07c9)), u"Samsung Electric 0x07c9"_s);
        QCOMPARE(name(makeEdid("HWP", "LP2475w") + QByteArray(128, '\1')),
                 u"Hewlett Packard LP2475w"_s);
        QCOMPARE(name(makeEdid("QQZ", "ABCDEFGHIJKLM")), u"QQZ ABCDEFGHIJKLM"_s);
        QCOMPARE(name(makeEdid("BNQ", "BenQ GL2450")), u"BenQ GL2450"_s);
        QCOMPARE(monitorName(makeEdid("DEL", "U2720Q"), {}), u"DEL U2720Q"_s);
        QCOMPARE(name(makeEdid("DEL", "U2720Q").left(127)), QString());
    }

    void kindFollowsTheType()
    {
        X11Atoms atoms;
        atoms.typeDock = 101;
        atoms.typeTooltip = 102;
        atoms.typeUtility = 103;
        atoms.typeSplash = 104;
        atoms.typeDialog = 105;
        atoms.typeNormal = 106;
        const auto kind = [&atoms](const QList<quint32>& types, bool isTransient = false) {
            return windowKind(types, isTransient, atoms);
        };
        constexpr quint32 unknown = 99999;
        constexpr auto standard = std::optional(WindowKind::standard);
        constexpr auto dialog = std::optional(WindowKind::dialog);
        constexpr auto utility = std::optional(WindowKind::utility);
        QCOMPARE(kind({}), standard);
        QCOMPARE(kind({}, true), dialog);
        QCOMPARE(kind({atoms.typeNormal}, true), standard);
        QCOMPARE(kind({atoms.typeDialog}), dialog);
        QCOMPARE(kind({unknown}, true), dialog);
        QCOMPARE(kind({atoms.typeUtility}, true), utility);
        QCOMPARE(kind({atoms.typeSplash}), std::optional(WindowKind::notification));
        // The first known one counts.
        QCOMPARE(kind({unknown, atoms.typeUtility, atoms.typeNormal}), utility);
        for (const quint32 type : {atoms.typeDock, atoms.typeTooltip})
            QVERIFY(!kind({type, atoms.typeNormal}));
    }

    void windowsWithoutAnyNameGoByTheirProcess()
    {
        const auto unnamed =
            groupWindows({window(1, 500, {}), window(2, 600, {}), window(3, 500, {})});
        QCOMPARE(unnamed.size(), 2);
        QVERIFY(!unnamed[0].bundleIdentifier && !unnamed[0].bundleURL);
        QCOMPARE(unnamed[0].windows.size(), 2);
        QCOMPARE(unnamed[0].windows[1].id, WindowId(0, 3));
    }

    void whatOnlyDrawsTheDesktopIsNotAtWork()
    {
        IdentifiedWindow desktop = window(1, 500, u"files"_s);
        desktop.kind.reset();
        QVERIFY(groupWindows({desktop}).isEmpty());
        QCOMPARE(groupWindows({desktop, window(2, 500, u"files"_s)}).first().windows.size(), 1);
    }

    void programsWithoutDesktopFileAreFoundAgain()
    {
        const QTemporaryDir folder;
        const auto programOf = [](const QString& program, const QProcessEnvironment& environment) {
            QProcess process;
            process.setProcessEnvironment(environment);
            process.start(program, {u"60"_s});
            if (!process.waitForStarted())
                qFatal("%s", qPrintable(program));
            const auto identity = identityWithoutDesktopFile({qint32(process.processId())});
            process.kill();
            process.waitForFinished();
            return identity.url.toLocalFile();
        };
        auto environment = QProcessEnvironment::systemEnvironment();
        const QString script =
            lab::writeProgram(folder.filePath(u"tool"_s), "#!/bin/sh\nsleep $1\n");
        QCOMPARE(programOf(script, environment), script);

        // It runs from a picture of itself, and starts others that do not.
        const QString sleep = QFileInfo(u"/bin/sleep"_s).canonicalFilePath();
        const QString mounted = folder.filePath(u"sleep"_s);
        QVERIFY(QFile::copy(sleep, mounted));
        environment.insert(u"APPDIR"_s, folder.path());
        environment.insert(u"APPIMAGE"_s, u"/apps/Tool.AppImage"_s);
        QCOMPARE(programOf(mounted, environment), u"/apps/Tool.AppImage"_s);
        QCOMPARE(programOf(sleep, environment), sleep);
    }

    void oneOrdinaryWindowIsEnough()
    {
        IdentifiedWindow splash = window(12, 600, u"starting"_s);
        splash.kind = WindowKind::notification;
        const RunningApplication starting = groupWindows({splash}).first();
        QVERIFY(!starting.isRegular);
        QCOMPARE(starting.windows.size(), 1);
        QVERIFY(groupWindows({splash, window(13, 700, u"starting"_s)}).first().isRegular);
    }

    void nobodyIsTornToAnotherDesktop()
    {
        using Windows = QList<DesktopWindow>;
        const auto window = [](quint64 id, std::optional<int> desktop, int position = 0) {
            DesktopWindow each{.id = WindowId(0, id)};
            each.virtualDesktop = desktop;
            each.stackingPosition = position;
            return each;
        };
        const auto activated = [](const Windows& first, const Windows& second, int inView) {
            RunningApplication a{.bundleIdentifier = u"a"_s, .windows = first};
            RunningApplication b{.bundleIdentifier = u"b"_s, .windows = second};
            QList<quint64> ids;
            for (const WindowId& id :
                 windowsToActivate({u"a"_s, u"b"_s, u"gone"_s}, {a, b}, inView))
                ids.append(id.low());
            return ids;
        };
        using Ids = QList<quint64>;
        const Windows everywhere{window(1, {}, 5)};
        QCOMPARE(activated(everywhere, {window(2, 0)}, 0), (Ids{2, 1}));
        // The topmost one in view, not the topmost one.
        QCOMPARE(activated({window(1, 0, 1), window(3, 1, 9)}, {window(2, 1)}, 0), Ids{1});
        // All on one other desktop, or spread over several.
        QCOMPARE(activated({window(1, 2)}, {window(2, 2)}, 0), (Ids{2, 1}));
        QCOMPARE(activated({window(1, 1)}, {window(2, 2)}, 0), Ids());
        QCOMPARE(activated({}, {}, 0), Ids());
    }

    void withoutDesktopFileTheClassIsTheIdentifier()
    {
        const auto self = static_cast<qint32>(QCoreApplication::applicationPid());
        const auto identity = identityWithoutDesktopFile({self, u"Class"_s, u"instance"_s});
        QCOMPARE(identity.bundleIdentifier, u"Class"_s);
        QCOMPARE(identity.name, u"Class"_s);
        QCOMPARE(identity.url, QUrl::fromLocalFile(QCoreApplication::applicationFilePath()));
        const auto identifier = [](qint32 process, const QString& instance) {
            return identityWithoutDesktopFile({process, {}, instance}).bundleIdentifier;
        };
        QCOMPARE(identifier(0, u"instance"_s), u"instance"_s);
        QCOMPARE(identifier(self, {}), u"X11RulesTest"_s);
        QCOMPARE(identifier(0, {}), QString());
    }

    void strutsShrinkTheDisplayTheyTouch()
    {
        using Edge = Strut::Edge;
        const auto verify = [](const QList<Strut>& struts, const PixelRectangle& leftFree,
                               const PixelRectangle& rightFree) {
            QCOMPARE(withoutStruts(left, struts, screen), leftFree);
            QCOMPARE(withoutStruts(right, struts, screen), rightFree);
        };
        // The screen's edge is 200 pixels above the display: the strut counts from there.
        verify({{Edge::top, 230, 1600, 2880}}, left, {1600, 230, 1280, 994});
        verify({{Edge::right, 1330, 0, 1024}}, {0, 0, 1550, 1024}, right);
        verify({{Edge::left, 10, 0, 1224},
                {Edge::right, 20, 0, 1224},
                {Edge::top, 30, 0, 1600},
                {Edge::bottom, 40, 1600, 2880}},
               {10, 30, 1590, 994}, {1600, 200, 1260, 984});
        verify({{Edge::top, 600, 0, 1600}, {Edge::bottom, 900, 0, 1600}}, left, right);
    }

    void strutsAreReadFromEitherProperty()
    {
        const QList<quint32> partial = {0, 0, 30, 0, 0, 0, 0, 0, 1600, 2879, 0, 0};
        // The older property has no span and gives way to the newer one.
        QCOMPARE(makeStruts(partial, {0, 0, 99, 0}, screen),
                 (QList<Strut>{{Strut::Edge::top, 30, 1600, 2880}}));
        QCOMPARE(makeStruts({}, {0, 7, 0, 0}, screen),
                 (QList<Strut>{{Strut::Edge::right, 7, 0, 1224}}));
        // Nonsense is harmless.
        QCOMPARE(makeStruts({1, 2, 3}, {1, 2, 3}, screen), QList<Strut>());
        const QList<Strut> huge = makeStruts({}, {0xffffffff, 0, 0, 0xffffffff}, screen);
        QCOMPARE(withoutStruts(left, huge, screen), left);
    }

    void workAreaThatIsOffIsIgnored()
    {
        QCOMPARE(intersectedOrWhole(left, {0, 24, 5000, 1000}),
                 (PixelRectangle{0, 24, 1600, 1000}));
        QCOMPARE(intersectedOrWhole(left, {0, 0, 0, 0}), left);
        QCOMPARE(intersectedOrWhole(left, {1600, 0, 500, 500}), left);
    }

    void findsPanelsThatAreInNoList()
    {
        const QSize screen(2880, 1024);
        const PixelRectangle left{0, 0, 1600, 1024};
        const PixelRectangle right{1600, 0, 1280, 900};
        const QList<PixelRectangle> whole{left, right};
        using Areas = QList<PixelRectangle>;
        // Each display's own area, whatever their order; one that is none of its own tells nothing.
        const Areas own{{1600, 0, 1280, 880}, {0, 30, 1600, 994}};
        QCOMPARE(withinOwnArea(left, left, own), own.at(1));
        QCOMPARE(withinOwnArea(right, right, own), own.at(0));
        QCOMPARE(withinOwnArea(right, right, {{0, 0, 2880, 1000}}), right);

        // One box for all: the main display has the panel if it reaches that edge.
        const auto free = [&](const Areas& known, qsizetype main, const PixelRectangle& area) {
            return withoutHiddenPanels(known, whole, main, area, screen);
        };
        QCOMPARE(free(whole, 0, {0, 0, 2880, 1000}), (Areas{{0, 0, 1600, 1000}, right}));
        QCOMPARE(free(whole, 1, {0, 0, 2880, 1000}), (Areas{{0, 0, 1600, 1000}, right}));
        QCOMPARE(free(whole, 1, {0, 20, 2880, 1004}), (Areas{left, {1600, 20, 1280, 880}}));
        QCOMPARE(free(whole, -1, {0, 20, 2880, 1004}),
                 (Areas{{0, 20, 1600, 1004}, {1600, 20, 1280, 880}}));
        // What struts told already, and what is no area at all.
        const Areas known{{0, 0, 1600, 1000}, right};
        QCOMPARE(free(known, 0, {0, 0, 2880, 1000}), known);
        QCOMPARE(free(whole, 0, {0, 0, 0, 0}), whole);
    }

    void keysAreFoundInTheLayout()
    {
        using Result = std::optional<X11KeyCombination>;
        const auto plain = layout({'1', '!', '2', '@', '5', '%', altLeft, 0}, 3, 13);
        QCOMPARE(plain.combination(Qt::CTRL | Qt::ALT | Qt::Key_1),
                 Result({10, (1 << 2) | (1 << 3)}));
        QCOMPARE(plain.combination(Qt::CTRL | Qt::Key_5), Result({12, 1 << 2}));
        QCOMPARE(plain.combination(Qt::CTRL | Qt::Key_6), Result());
        QCOMPARE(plain.combination(Qt::CTRL | Qt::SHIFT | Qt::Key_1), Result());
        const auto shifted = layout({'&', '1', 0xe9, '2', '"', '3', 0, altRight}, 4, 13);
        QCOMPARE(shifted.combination(Qt::ALT | Qt::Key_2), Result({11, 1 << 4}));
        const auto twice = layout({'m', '1', '1', '!', 'x', '1', altLeft, 0});
        QCOMPARE(twice.combination(Qt::CTRL | Qt::Key_1), Result({11, 1 << 2})); // the lowest level
        QCOMPARE(twice.combination(Qt::CTRL | Qt::Key_M), Result({10, 1 << 2}));
        const auto bothAlts = layout({'1', '!', altRight, 0, altLeft, 0, 0, 0}, 5, 12);
        QCOMPARE(bothAlts.combination(Qt::ALT | Qt::Key_1),
                 Result({10, 1 << 5})); // the left one tells
        // An Alt key that is missing or sets no modifier.
        for (const quint32 key : {0U, altLeft})
            QCOMPARE(layout({'1', '!', 0, 0, 0, 0, key, 0}).combination(Qt::ALT | Qt::Key_1),
                     Result());
    }

    void locksAreFoundInTheLayout()
    {
        const auto locks = [](quint32 keysym, qsizetype modifierIndex, quint8 keycode) {
            return layout({'1', '!', keysym, 0, 0, 0, 0, keysym}, modifierIndex, keycode)
                .lockModifiers();
        };
        QCOMPARE(locks(numLock, 7, 13), 2 | 128); // on the second level
        QCOMPARE(locks(scrollLock, 5, 11), 2 | 32);
        QCOMPARE(locks(scrollLock, 5, 12), 2); // sets no modifier
        QCOMPARE(X11KeyboardLayout().lockModifiers(), 2);
        QCOMPARE(combinationsOfBits(2 | 16), (QList<quint16>{0, 2, 16, 18}));
    }
};

QTEST_GUILESS_MAIN(X11RulesTest)
#include "X11RulesTest.moc"
