// SPDX-License-Identifier: MIT
//
// A pass over several windows, whose adapter, window manager and programs are played by the test.

#include "platform/desktop/FramePass.h"

#include <QtTest>

using namespace trovell;
using namespace std::chrono_literals;

namespace {

using Step = FramePass::Step;

constexpr QRectF target = {100, 100, 700, 500};
constexpr WindowId id = {0, 1};
constexpr QRectF elsewhere = {0, 0, 300, 200};

/// An adapter whose windows take every frame at once, unless they are stubborn.
class Adapter {
public:
    explicit Adapter(WindowClaims& claims, const QList<FramePass::Request>& requests)
        : m_pass(requests, claims, m_now), m_frames(size_t(requests.size()), elsewhere)
    {
        read();
    }

    void run()
    {
        while (!m_pass.isOver(m_now)) {
            for (const auto& [position, step, states, statesToSet] :
                 m_pass.nextSteps(m_now, false)) {
                ++moves;
                if (!stubborn.contains(position))
                    becomes(position, m_pass.target(position));
            }
            if (m_pass.isTimeToRead(m_now))
                read();
            m_now = std::max(m_now + 1ms, m_pass.nextWakeUp(m_now, false));
        }
    }
    /// The program of the window moves it.
    void becomes(size_t position, const QRectF& frame)
    {
        m_frames[position] = frame;
        m_pass.noteChange(position, m_now);
    }
    void guard()
    {
        m_pass.beginGuard(m_now);
        for (int moved = 0; moved < 10; ++moved) {
            becomes(0, elsewhere);
            m_now += 10ms;
            read();
            for (auto waited = 0ms; waited < 100ms; waited += 10ms, m_now += 10ms) {
                for (const auto& [position, step, states, statesToSet] :
                     m_pass.nextSteps(m_now, false)) {
                    ++moves;
                    becomes(position, m_pass.target(position));
                    read();
                }
            }
        }
    }

    FramePass& pass() { return m_pass; }
    QRectF frame(size_t position) const { return m_frames[position]; }

    int moves = 0;
    QSet<size_t> stubborn;

private:
    void read()
    {
        for (const size_t position : m_pass.unread())
            m_pass.read(position, FrameReading{m_frames[position], m_pass.target(position)}, m_now);
    }

    FramePass::Time m_now{1h};
    FramePass m_pass;
    std::vector<QRectF> m_frames;
};

} // namespace

class FramePassTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void eachWindowHasItsOwnAnswer()
    {
        WindowClaims claims;
        Adapter adapter(claims, {{id, {target}}, {{0, 2}, {target}}, {{0, 3}, {elsewhere}}});
        adapter.stubborn.insert(1);
        adapter.run();
        QCOMPARE(
            adapter.pass().finish(),
            (QList<FrameOutcome>{FrameOutcome::taken, FrameOutcome::refused, FrameOutcome::taken}));
        QCOMPARE(adapter.frame(0), target);
        QVERIFY(!adapter.pass().hasWindowsToGuard());
    }

    void aDesktopThatStandsStillRefusesNothing()
    {
        WindowClaims claims;
        FramePass::Time now{1h};
        FramePass pass({{id, {target}}}, claims, now);
        pass.read(0, FrameReading{elsewhere, target}, now);
        while (!pass.isOver(now)) {
            (void)pass.nextSteps(now, true);
            now = std::max(now + 1ms, pass.nextWakeUp(now, true));
        }
        QCOMPARE(pass.finish(), QList<FrameOutcome>{FrameOutcome::unanswered});
    }

    void aPersonKeepsWhatTheyMove()
    {
        WindowClaims claims;
        const FramePass::Time now{1h};
        FramePass pass({{id, {target}}}, claims, now);
        // Holding the mouse still moves nothing.
        pass.read(0, FrameReading{elsewhere, target, {}, true}, now);
        QCOMPARE(pass.nextSteps(now, false).size(), size_t(1));
        pass.noteChange(0, now);
        pass.read(0, FrameReading{elsewhere.translated(30, 0), target, {}, true}, now);
        QVERIFY(pass.isOver(now));
        QCOMPARE(pass.finish(), QList<FrameOutcome>{FrameOutcome::movedByPerson});
    }

    void onlyYoungWindowsArePutBackAndNotForEver()
    {
        WindowClaims claims;
        Adapter adapter(claims, {{id, {target}, {}, true}});
        adapter.run();
        QCOMPARE(adapter.pass().finish(), QList<FrameOutcome>{FrameOutcome::taken});
        QVERIFY(adapter.pass().hasWindowsToGuard());
        adapter.moves = 0;
        adapter.guard();
        QCOMPARE(adapter.moves, 1);
    }

    void aWindowThatWasPlacedAgainIsLetGo()
    {
        WindowClaims claims;
        Adapter adapter(claims, {{id, {target}, {}, true}});
        adapter.run();
        (void)adapter.pass().finish();
        adapter.moves = 0;
        const auto later = claims.newClaim();
        claims.take(id, later);
        adapter.guard();
        QCOMPARE(adapter.moves, 0);
        QVERIFY(claims.isHeld(id, later));
    }
};

QTEST_GUILESS_MAIN(FramePassTest)
#include "FramePassTest.moc"
