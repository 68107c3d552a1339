#include "windows/WindowCaptureService.h"

#include "model/WindowPlacement.h"
#include "support/FakeWindowSystem.h"
#include "windows/OrdinaryWindow.h"

#include <QtTest>

using namespace trovell;

namespace {

constexpr qint64 ownProcess = 1;

using Window = FakeWindowSystem::Window;

WindowCaptureService::Capture capture(FakeWindowSystem& desktop,
                                      std::optional<QSet<QString>> filter = {},
                                      bool allowEmpty = false)
{
    const WindowCaptureService service(desktop, ownProcess);
    return QCoro::waitFor(service.captureApplications(filter, allowEmpty));
}

QStringList identifiers(const QList<CapturedApplication>& applications)
{
    QStringList list;
    for (const CapturedApplication& application : applications)
        list.append(application.bundleIdentifier);
    return list;
}

} // namespace

class WindowCaptureServiceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void tellsOrdinaryWindows_data();
    void tellsOrdinaryWindows();
    void capturesWindowsWithTheirPositionsAndDisplays();
    void leavesOutWhatIsNotTheUsers();
    void answersWhenThereIsNothing();
    void listsRunningApplicationsWithoutPermission();
    void makesPlacements();
};

void WindowCaptureServiceTest::tellsOrdinaryWindows_data()
{
    QTest::addColumn<WindowAttributes>("window");
    QTest::addColumn<bool>("isOrdinary");
    const WindowAttributes standard{1,       false,         u"AXWindow"_qs, std::nullopt,
                                    u"t"_qs, QPointF(0, 0), QSizeF(81, 61)};
    const auto row = [&standard](const char* name, bool isOrdinary, auto change) {
        WindowAttributes window = standard;
        change(window);
        QTest::newRow(name) << window << isOrdinary;
    };
    row("smallest", true, [](auto&) {});
    row("unknown state", true, [](auto& w) { w.isMinimized.reset(); });
    row("unknown subrole", true, [](auto& w) { w.subrole = u"AXOther"_qs; });
    row("minimised", false, [](auto& w) { w.isMinimized = true; });
    row("no role", false, [](auto& w) { w.role.reset(); });
    row("other role", false, [](auto& w) { w.role = u"AXSheet"_qs; });
    row("no position", false, [](auto& w) { w.position.reset(); });
    row("no size", false, [](auto& w) { w.size.reset(); });
    row("narrow", false, [](auto& w) { w.size = QSizeF(80, 600); });
    row("flat", false, [](auto& w) { w.size = QSizeF(600, 60); });
    row("not a size", false, [](auto& w) { w.size = QSizeF(600, qQNaN()); });
    for (const char* subrole : {"AXSystemDialog", "AXFloatingWindow", "AXDialog"})
        row(subrole, false, [subrole](auto& w) { w.subrole = QString::fromLatin1(subrole); });
}

void WindowCaptureServiceTest::tellsOrdinaryWindows()
{
    QFETCH(WindowAttributes, window);
    QTEST(isOrdinaryWindow(window), "isOrdinary");
}

void WindowCaptureServiceTest::capturesWindowsWithTheirPositionsAndDisplays()
{
    FakeWindowSystem desktop;
    desktop.displays.append(
        desktop.display(u"Second"_qs, {1440, 0, 1000, 900}, {1440, 0, 1000, 900}, false));
    desktop.addApplication(u"b"_qs, u"beta"_qs);
    desktop.addApplication(u"a"_qs, u"Alpha"_qs);
    desktop.addWindow(u"a"_qs, {.title = u"Open"_qs, .subrole = u"AXDialog"_qs});
    desktop.addWindow(u"a"_qs, {.title = u""_qs, .frame = {1300, 100, 400, 300}, .subrole = {}});
    desktop.addWindow(u"b"_qs, {.title = u"Notes"_qs, .frame = {-9000, 0, 400, 300}});

    const auto captured = capture(desktop);
    QVERIFY(captured);
    QCOMPARE(identifiers(*captured), (QStringList{u"a"_qs, u"b"_qs}));
    const CapturedWindow window = captured->at(0).windows.first();
    QCOMPARE(captured->at(0).windows.size(), 1);
    QCOMPARE(window.windowIndex, 1);
    QCOMPARE(window.windowTitle, std::nullopt);
    QCOMPARE(window.subrole, std::nullopt);
    QCOMPARE(window.frame, QRectF(1300, 500, 400, 300));
    QCOMPARE(window.display.fingerprint.localizedName, u"Second"_qs);
    // A window on no display at all belongs to the first one.
    QCOMPARE(captured->at(1).windows.first().display.fingerprint.localizedName, u"Main"_qs);
}

void WindowCaptureServiceTest::leavesOutWhatIsNotTheUsers()
{
    FakeWindowSystem desktop;
    const auto add = [&desktop](const QString& id) -> RunningApplication& {
        desktop.addWindow(id, {.title = id});
        return desktop.addApplication(id + u"-windowless"_qs);
    };
    add(u"editor"_qs);
    auto& own = desktop.addApplication(u"own"_qs);
    own.processIdentifier = ownProcess;
    desktop.addWindow(u"own"_qs, {});
    desktop.addApplication(u"panel"_qs).isRegular = false;
    desktop.addWindow(u"panel"_qs, {});
    desktop.addApplication(u"gone"_qs).isTerminated = true;
    desktop.addWindow(u"gone"_qs, {});
    desktop.addApplication(u"hidden"_qs).isHidden = true;
    desktop.addWindow(u"hidden"_qs, {});
    desktop.addApplication(u"minimised"_qs);
    desktop.addWindow(u"minimised"_qs, {.isMinimized = true});

    QCOMPARE(identifiers(*capture(desktop)), (QStringList{u"editor"_qs, u"hidden"_qs}));
    QCOMPARE(identifiers(*capture(desktop, QSet<QString>{u"hidden"_qs})),
             QStringList{u"hidden"_qs});
}

void WindowCaptureServiceTest::answersWhenThereIsNothing()
{
    FakeWindowSystem desktop;
    desktop.addApplication(u"windowless"_qs);
    QCOMPARE(capture(desktop).error(), WindowServiceError::noWindows);
    QVERIFY(capture(desktop, {}, true)->isEmpty());

    // Without a display there is nowhere to put a window.
    desktop.addWindow(u"windowless"_qs, {});
    desktop.displays.clear();
    QCOMPARE(capture(desktop).error(), WindowServiceError::noWindows);

    const int readCount = desktop.readCount();
    desktop.trusted = false;
    QCOMPARE(capture(desktop, {}, true).error(),
             WindowServiceError::accessibilityPermissionMissing);
    QCOMPARE(desktop.readCount(), readCount);
}

void WindowCaptureServiceTest::listsRunningApplicationsWithoutPermission()
{
    FakeWindowSystem desktop;
    desktop.trusted = false;
    desktop.addWindow(u"zeta"_qs, {});
    desktop.addApplication(u"alpha"_qs).localizedName.reset();
    desktop.addApplication(u"hidden"_qs).isHidden = true;
    const WindowCaptureService service(desktop, ownProcess);
    const auto running = QCoro::waitFor(service.runningApplications());
    QCOMPARE(identifiers(running), (QStringList{u"zeta"_qs, u"alpha"_qs}));
    QCOMPARE(running.at(1).applicationName, u"Application"_qs);
    QVERIFY(running.at(0).windows.isEmpty());
}

void WindowCaptureServiceTest::makesPlacements()
{
    FakeWindowSystem desktop;
    desktop.addWindow(u"a"_qs, {.title = u"Notes"_qs, .frame = {720, 25, 720, 437.5}});
    const CapturedWindow window = capture(desktop)->first().windows.first();
    const auto placement = makePlacement(window);
    QVERIFY(!placement->id().isNull() && placement->id() != window.id);
    QCOMPARE(placement->savedNormalizedFrame(), (NormalizedFrame{0.5, 0.5, 0.5, 0.5}));
    QCOMPARE(placement->savedAbsoluteFrame(), QRectF(720, 437.5, 720, 437.5));
    QCOMPARE(placement->savedDisplayFingerprint(), desktop.displays.first().fingerprint);
    QVERIFY(placement->isEnabled());
}

QTEST_GUILESS_MAIN(WindowCaptureServiceTest)
#include "WindowCaptureServiceTest.moc"
