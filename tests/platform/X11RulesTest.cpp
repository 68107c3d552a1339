// What is known of windows, panels and monitors without asking a server.
#include "platform/x11/MonitorName.h"
#include "platform/x11/X11Applications.h"
#include "platform/x11/X11WindowKind.h"
#include "platform/x11/X11WorkArea.h"
#include "support/MakeEdid.h"

#include <QCoreApplication>
#include <QTest>

using namespace trovell;
using trovell::test::makeEdid;

namespace {

// Two displays side by side, the right one lower and shorter; the X screen is the box around both.
constexpr PixelRectangle left = {0, 0, 1600, 1024};
constexpr PixelRectangle right = {1600, 200, 1280, 1024};
constexpr QSize screen = {2880, 1224};

IdentifiedWindow window(WindowHandle handle, qint32 process, const QString& identifier)
{
    return {handle, process, true, true, {identifier, identifier + u" name"_qs, {}}};
}

} // namespace

class X11RulesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void monitorIsNamedByManufacturerAndModel();
    void kindFollowsTheType();
    void windowsWithoutAnyNameGoByTheirProcess();
    void oneOrdinaryWindowIsEnough();
    void withoutDesktopFileTheClassIsTheIdentifier();
    void strutsShrinkTheDisplayTheyTouch();
    void strutsAreReadFromEitherProperty();
    void workAreaThatIsOffIsIgnored();
};

void X11RulesTest::monitorIsNamedByManufacturerAndModel()
{
    QCOMPARE(monitorName(makeEdid("DEL", "DELL U2720Q")), u"DELL U2720Q"_qs);
    QCOMPARE(monitorName(makeEdid("QQZ", "ABCDEFGHIJKLM")), u"QQZ ABCDEFGHIJKLM"_qs);
    QCOMPARE(monitorName(makeEdid("BOE", "", 0x07c9)), u"BOE 0x07c9"_qs);
    QCOMPARE(monitorName(makeEdid("GSM", "HDR 4K") + QByteArray(128, '\1')), u"LG HDR 4K"_qs);
    QCOMPARE(monitorName(makeEdid("GSM", "HDR 4K").left(127)), QString());
}

void X11RulesTest::kindFollowsTheType()
{
    X11Atoms atoms;
    atoms.typeDock = 101;
    atoms.typeTooltip = 102;
    atoms.typeUtility = 103;
    atoms.typeSplash = 104;
    atoms.typeDialog = 105;
    atoms.typeNormal = 106;
    const auto kind = [&atoms](const QList<quint32>& types, bool isTransient = false) {
        const auto found = windowKind(types, isTransient, atoms);
        const QString subrole = found ? subroleOf(*found) : QString();
        return isOrdinaryKind(found) ? subrole + u", ordinary"_qs : subrole;
    };
    constexpr quint32 unknown = 99999;
    const QString standard = u"AXStandardWindow, ordinary"_qs;
    const QString dialog = u"AXDialog, ordinary"_qs;
    const QString floating = u"AXFloatingWindow"_qs;
    QCOMPARE(kind({}), standard);
    QCOMPARE(kind({}, true), dialog);
    QCOMPARE(kind({atoms.typeNormal}, true), standard);
    QCOMPARE(kind({atoms.typeDialog}), dialog);
    QCOMPARE(kind({unknown}, true), dialog);
    QCOMPARE(kind({atoms.typeUtility}, true), floating);
    QCOMPARE(kind({atoms.typeSplash}), u"AXSystemDialog"_qs);
    // The first known one counts.
    QCOMPARE(kind({unknown, atoms.typeUtility, atoms.typeNormal}), floating);
    for (const quint32 type : {atoms.typeDock, atoms.typeTooltip})
        QCOMPARE(kind({type, atoms.typeNormal}), QString());
}

void X11RulesTest::windowsWithoutAnyNameGoByTheirProcess()
{
    const auto unnamed = groupWindows({window(1, 500, {}), window(2, 600, {}), window(3, 500, {})});
    QCOMPARE(unnamed.size(), 2);
    QVERIFY(!unnamed[0].bundleIdentifier && !unnamed[0].bundleURL);
    QCOMPARE(unnamed[0].windows, (QList<WindowHandle>{1, 3}));
}

void X11RulesTest::oneOrdinaryWindowIsEnough()
{
    IdentifiedWindow splash = window(12, 600, u"starting"_qs);
    splash.isOrdinary = false;
    const RunningApplication starting = groupWindows({splash}).first();
    QVERIFY(!starting.isRegular);
    QCOMPARE(starting.windows.size(), 1);
    QVERIFY(groupWindows({splash, window(13, 700, u"starting"_qs)}).first().isRegular);
}

void X11RulesTest::withoutDesktopFileTheClassIsTheIdentifier()
{
    const auto self = static_cast<qint32>(QCoreApplication::applicationPid());
    const auto identity = identityWithoutDesktopFile({self, u"Class"_qs, u"instance"_qs, {}});
    QCOMPARE(identity.bundleIdentifier, u"Class"_qs);
    QCOMPARE(identity.name, u"Class"_qs);
    QCOMPARE(identity.url, QUrl::fromLocalFile(QCoreApplication::applicationFilePath()));
    const auto identifier = [](qint32 process, const QString& instance) {
        return identityWithoutDesktopFile({process, {}, instance, {}}).bundleIdentifier;
    };
    QCOMPARE(identifier(0, u"instance"_qs), u"instance"_qs);
    QCOMPARE(identifier(self, {}), u"X11RulesTest"_qs);
    QCOMPARE(identifier(0, {}), QString());
}

void X11RulesTest::strutsShrinkTheDisplayTheyTouch()
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

void X11RulesTest::strutsAreReadFromEitherProperty()
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

void X11RulesTest::workAreaThatIsOffIsIgnored()
{
    QCOMPARE(intersectedOrWhole(left, {0, 24, 5000, 1000}), (PixelRectangle{0, 24, 1600, 1000}));
    QCOMPARE(intersectedOrWhole(left, {0, 0, 0, 0}), left);
    QCOMPARE(intersectedOrWhole(left, {1600, 0, 500, 500}), left);
}

QTEST_GUILESS_MAIN(X11RulesTest)
#include "X11RulesTest.moc"
