// SPDX-License-Identifier: MIT

#include "windows/WindowCaptureService.h"

#include "support/FakeWindowSystem.h"
#include "windows/OrdinaryWindow.h"

#include <QtTest>

using namespace Qt::StringLiterals;

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
    void tellsOrdinaryWindows()
    {
        const auto isOrdinary = [](auto change) {
            WindowAttributes window{1,      false,         u"AXWindow"_s, std::nullopt,
                                    u"t"_s, QPointF(0, 0), QSizeF(81, 61)};
            change(window);
            return isOrdinaryWindow(window);
        };
        QVERIFY(isOrdinary([](auto& w) { w.isMinimized.reset(); })); // the smallest
        QVERIFY(isOrdinary([](auto& w) { w.subrole = u"AXOther"_s; }));
        QVERIFY(!isOrdinary([](auto& w) { w.isMinimized = true; }));
        QVERIFY(!isOrdinary([](auto& w) { w.role = u"AXSheet"_s; }));
        QVERIFY(!isOrdinary([](auto& w) { w.position.reset(); }));
        QVERIFY(!isOrdinary([](auto& w) { w.size.reset(); }));
        QVERIFY(!isOrdinary([](auto& w) { w.size = QSizeF(80, 600); }));
        QVERIFY(!isOrdinary([](auto& w) { w.size = QSizeF(600, 60); }));
        QVERIFY(!isOrdinary([](auto& w) { w.size = QSizeF(600, qQNaN()); }));
        for (const QString& subrole : {u"AXSystemDialog"_s, u"AXFloatingWindow"_s, u"AXDialog"_s})
            QVERIFY(!isOrdinary([&subrole](auto& w) { w.subrole = subrole; }));
    }

    void capturesWindowsWithTheirPositionsAndDisplays()
    {
        FakeWindowSystem desktop;
        desktop.displays.append(
            desktop.display(u"Second"_s, {1440, 0, 1000, 900}, {1440, 0, 1000, 900}, false));
        desktop.addApplication(u"b"_s, u"beta"_s);
        desktop.addApplication(u"a"_s, u"Alpha"_s);
        desktop.addWindow(u"a"_s, {.title = u"Open"_s, .subrole = u"AXDialog"_s});
        desktop.addWindow(u"a"_s, {.title = u""_s, .frame = {1300, 100, 400, 300}, .subrole = {}});
        desktop.addWindow(u"b"_s, {.title = u"Notes"_s, .frame = {-9000, 0, 400, 300}});

        const auto captured = capture(desktop);
        QVERIFY(captured);
        QCOMPARE(identifiers(*captured), (QStringList{u"a"_s, u"b"_s}));
        const CapturedWindow window = captured->at(0).windows.first();
        QCOMPARE(captured->at(0).windows.size(), 1);
        QCOMPARE(window.windowIndex, 1);
        QCOMPARE(window.windowTitle, std::nullopt);
        QCOMPARE(window.subrole, std::nullopt);
        QCOMPARE(window.frame, QRectF(1300, 500, 400, 300));
        QCOMPARE(window.display.fingerprint.localizedName, u"Second"_s);
        // A window on no display at all belongs to the first one.
        QCOMPARE(captured->at(1).windows.first().display.fingerprint.localizedName, u"Main"_s);
    }

    void leavesOutWhatIsNotTheUsers()
    {
        FakeWindowSystem desktop;
        desktop.addApplication(u"windowless"_s);
        desktop.addApplication(u"own"_s).processIdentifier = ownProcess;
        desktop.addApplication(u"panel"_s).isRegular = false;
        desktop.addApplication(u"gone"_s).isTerminated = true;
        desktop.addApplication(u"hidden"_s).isHidden = true;
        for (const QString& id : {u"editor"_s, u"own"_s, u"panel"_s, u"gone"_s, u"hidden"_s})
            desktop.addWindow(id, {.title = id});
        desktop.addWindow(u"minimised"_s, {.isMinimized = true});

        QCOMPARE(identifiers(*capture(desktop)), (QStringList{u"editor"_s, u"hidden"_s}));
        QCOMPARE(identifiers(*capture(desktop, QSet<QString>{u"hidden"_s})),
                 QStringList{u"hidden"_s});
    }

    void answersWhenThereIsNothing()
    {
        FakeWindowSystem desktop;
        desktop.addApplication(u"windowless"_s);
        QCOMPARE(capture(desktop).error(), WindowServiceError::noWindows);
        QVERIFY(capture(desktop, {}, true)->isEmpty());

        // Without a display there is nowhere to put a window.
        desktop.addWindow(u"windowless"_s, {});
        desktop.displays.clear();
        QCOMPARE(capture(desktop).error(), WindowServiceError::noWindows);

        const int readCount = desktop.readCount();
        desktop.trusted = false;
        QCOMPARE(capture(desktop, {}, true).error(),
                 WindowServiceError::accessibilityPermissionMissing);
        QCOMPARE(desktop.readCount(), readCount);
    }
};

QTEST_GUILESS_MAIN(WindowCaptureServiceTest)
#include "WindowCaptureServiceTest.moc"
