// SPDX-License-Identifier: MIT
//
// Whatever a desktop looks like: what was captured comes back exactly, and a second restore finds
// nothing to do.
#include "windows/CapturedApplication.h"
#include "windows/WindowCaptureService.h"
#include "windows/WindowRestoreService.h"

#include "model/WindowPlacement.h"
#include "support/FakeClock.h"
#include "support/FakeWindowSystem.h"

#include <QRandomGenerator>
#include <QtTest>

using namespace Qt::StringLiterals;

using namespace trovell;

namespace {

class RandomDesktop {
public:
    explicit RandomDesktop(quint32 seed) : m_random(seed)
    {
        system.displays.clear();
        for (int left = 0; left == 0 || (left < 6000 && chance(2)); left += 2000)
            system.displays.append({u"Display %1"_s.arg(left), QRectF(left, 0, 2000, 1100),
                                    QRectF(left, 30, 2000, 1000 + m_random.bounded(60)), 1,
                                    left == 0});
        for (int index = m_random.bounded(5); index > 0; --index)
            system.virtualDesktopNames.append(chance(3) ? QString() : u"Desk %1"_s.arg(index));
        for (int application = 1 + m_random.bounded(5); application > 0; --application) {
            for (int window = 1 + m_random.bounded(4); window > 0; --window)
                m_windows.append(system.addWindow(u"app%1"_s.arg(application), randomWindow()));
        }
    }

    /// All windows as they stand, to the pixel.
    QList<FakeWindowSystem::Window> windows() const
    {
        QList<FakeWindowSystem::Window> all;
        for (const WindowId& id : m_windows) {
            all.append(system.window(id));
            all.last().frame = all.last().frame.toRect();
        }
        return all;
    }

    void scatter()
    {
        for (const WindowId& id : std::as_const(m_windows)) {
            const auto other = randomWindow();
            const auto place =
                system.virtualDesktopNames.isEmpty() ? std::nullopt : other.virtualDesktop;
            static_cast<void>(system.place({{id, other.frame, other.states, place}}));
        }
        system.placed.clear();
    }

    QList<WindowPlacementSnapshot> capture()
    {
        const WindowCaptureService service(system, 0);
        QList<WindowPlacementSnapshot> saved;
        const auto captured = QCoro::waitFor(service.captureApplications({}, true));
        for (const CapturedApplication& application : *captured) {
            for (const CapturedWindow& window : application.windows)
                saved.append(makeSnapshot(*makePlacement(window)));
        }
        return saved;
    }

    void restore(const QList<WindowPlacementSnapshot>& saved)
    {
        QHash<QString, QList<WindowPlacementSnapshot>> groups;
        for (const WindowPlacementSnapshot& placement : saved)
            groups[placement.bundleIdentifier].append(placement);
        FakeClock clock;
        WindowRestoreService service(system, clock);
        const auto run = service.beginRun({groups.keyBegin(), groups.keyEnd()});
        for (const auto& group : std::as_const(groups))
            QCoro::waitFor(service.restorePlacements(group, run));
        QCoro::waitFor(service.endRun(run));
    }

    FakeWindowSystem system;

private:
    bool chance(int oneIn) { return m_random.bounded(oneIn) == 0; }

    FakeWindowSystem::Window randomWindow()
    {
        using enum WindowState;
        const auto& display = system.displays.at(m_random.bounded(system.displays.size()));
        const QRectF room = display.workArea;
        const int width = m_random.bounded(240, int(room.width()));
        const int height = m_random.bounded(160, int(room.height()));
        FakeWindowSystem::Window window;
        window.title = u"Title %1"_s.arg(m_random.bounded(4));
        window.frame =
            QRectF(room.x() + m_random.bounded(int(room.width()) - width + 1),
                   room.y() + m_random.bounded(int(room.height()) - height + 1), width, height);
        for (const auto state :
             {maximizedHorizontally, maximizedVertically, fullScreen, shaded, above})
            window.states.setFlag(state, chance(4));
        const auto count = system.virtualDesktopNames.size();
        if (count > 0)
            window.virtualDesktop = chance(5) ? DesktopPlace{.isAll = true}
                                              : DesktopPlace{.index = m_random.bounded(int(count))};
        return window;
    }

    QRandomGenerator m_random;
    QList<WindowId> m_windows;
};

} // namespace

class RoundTripTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void bringsBackWhatWasCaptured()
    {
        const quint32 firstSeed = QRandomGenerator::global()->generate();
        for (quint32 round = 0; round < 1000; ++round) {
            const quint32 seed = firstSeed + round;
            const QByteArray hint = "seed " + QByteArray::number(seed);
            RandomDesktop desktop(seed);
            const auto before = desktop.windows();
            const auto saved = desktop.capture();
            QVERIFY2(saved.size() == before.size(), hint.constData());
            desktop.scatter();
            desktop.restore(saved);
            QVERIFY2(desktop.windows() == before, hint.constData());
            desktop.system.placed.clear();
            desktop.restore(saved);
            QVERIFY2(desktop.system.placed.isEmpty(), hint.constData());
        }
        qInfo("seeds from %u", firstSeed);
    }
};

QTEST_GUILESS_MAIN(RoundTripTest)
#include "RoundTripTest.moc"
