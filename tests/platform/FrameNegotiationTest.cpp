// SPDX-License-Identifier: MIT
//
// The dialogue about one window's frame, with window managers and programs of every temper played
// by the test and time that passes at once.

#include "platform/desktop/FrameNegotiation.h"

#include <QtTest>

using namespace trovell;
using namespace std::chrono_literals;

namespace {

using Step = FrameNegotiation::Step;

constexpr QRectF target = {100, 100, 700, 500};
constexpr QRectF elsewhere = {0, 0, 300, 200};

constexpr WindowStates maximized =
    WindowStates(WindowState::maximizedHorizontally) | WindowState::maximizedVertically;

FrameReading plain(const QRectF& frame, bool isFilling = false)
{
    return {frame, target, isFilling ? maximized : WindowStates()};
}

/// A negotiation with a clock.
class Dialogue {
public:
    explicit Dialogue(const FrameReading& first, const std::optional<WindowStates>& states = {})
        : m_negotiation({target, states})
    {
        m_negotiation.read(first, m_now);
    }

    Step step() { return m_negotiation.nextStep(m_now, m_progress); }
    Step stepAfter(std::chrono::milliseconds time)
    {
        m_now += time;
        return step();
    }
    /// The window changes and is read.
    void becomes(const std::optional<FrameReading>& reading)
    {
        m_negotiation.changed(m_now);
        m_progress = m_now;
        m_negotiation.read(reading, m_now);
    }
    /// Others of the same pass are served meanwhile.
    void othersProgress() { m_progress = m_now; }
    /// The steps of the next `time`, looked for every ten milliseconds, without any answer.
    QList<Step> stepsDuring(std::chrono::milliseconds time)
    {
        QList<Step> steps;
        for (auto passed = 0ms; passed < time; passed += 10ms) {
            if (const Step next = stepAfter(10ms); next != Step::wait)
                steps.append(next);
        }
        return steps;
    }
    FrameNegotiation& negotiation() { return m_negotiation; }
    bool isAccepted() const { return m_negotiation.isOver() && m_negotiation.isAccepted(); }
    bool isRefused() const { return m_negotiation.isOver() && !m_negotiation.isAccepted(); }

private:
    FrameNegotiation::Time m_now{1h};
    FrameNegotiation::Time m_progress = m_now;
    FrameNegotiation m_negotiation;
};

} // namespace

class FrameNegotiationTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void terminalInPlaceIsLeftAlone()
    {
        // It shows whole cells, so it is a little smaller than the frame.
        const QRectF wholeCells(100, 100, 696, 499);
        QCOMPARE(Dialogue({wholeCells, wholeCells}).step(), Step::wait);
    }

    void requestThatWasDroppedIsMadeDifferent()
    {
        Dialogue dialogue(plain(elsewhere));
        QCOMPARE(dialogue.step(), Step::move);
        QCOMPARE(dialogue.stepsDuring(200ms), QList<Step>{Step::moveAround});
        dialogue.becomes(plain(target));
        dialogue.step();
        QVERIFY(dialogue.isAccepted());
    }

    void extentsThatComeLateAreCorrected()
    {
        Dialogue dialogue(plain(elsewhere));
        dialogue.step();
        dialogue.becomes(plain({99, 78, 702, 527}));
        QCOMPARE(dialogue.step(), Step::wait); // it may not be at rest yet
        QCOMPARE(dialogue.stepAfter(100ms), Step::move);
        dialogue.becomes(plain(target));
        dialogue.step();
        QVERIFY(dialogue.isAccepted());
    }

    void onlyTheSizeMayBeItsOwnChoice()
    {
        Dialogue sized(plain(elsewhere));
        sized.step();
        sized.becomes(plain({100, 100, 640, 480}));
        QCOMPARE(sized.stepsDuring(1000ms), (QList<Step>{Step::move, Step::moveAround}));
        QVERIFY(sized.isAccepted());

        Dialogue placed(plain(elsewhere));
        placed.step();
        placed.becomes(plain({0, 100, 700, 500}));
        placed.stepsDuring(1000ms);
        QVERIFY(placed.isRefused());
    }

    void statesAreTakenOffFirst()
    {
        Dialogue right(plain(target, true));
        QCOMPARE(right.step(), Step::wait);
        QVERIFY(right.isAccepted());

        Dialogue dialogue(plain(elsewhere, true));
        QCOMPARE(dialogue.step(), Step::setStates);
        QCOMPARE(dialogue.stepAfter(30ms), Step::wait);
        dialogue.becomes(plain(elsewhere));
        QCOMPARE(dialogue.step(), Step::move);
        dialogue.becomes(plain(target));
        // Some programs change their shadow once more.
        QCOMPARE(dialogue.step(), Step::wait);
        QVERIFY(!dialogue.isAccepted());
        dialogue.becomes(plain({100, 100, 600, 400}));
        QCOMPARE(dialogue.stepAfter(100ms), Step::move);
        dialogue.becomes(plain(target));
        QCOMPARE(dialogue.stepAfter(100ms), Step::wait);
        QVERIFY(dialogue.isAccepted());
        QVERIFY(dialogue.negotiation().hasChangedStates());
    }

    void bringsToDesktopThenFrameThenStates()
    {
        const QRectF display(0, 20, 1000, 800);
        FrameReading reading = plain(elsewhere, true);
        reading.isOnDesktop = false;
        Dialogue dialogue(reading, maximized | WindowState::above);
        QCOMPARE(dialogue.step(), Step::setDesktop);
        reading.isOnDesktop = true;
        dialogue.becomes(reading);
        // Filling another display, it has to leave that first.
        QCOMPARE(dialogue.step(), Step::setStates);
        QCOMPARE(dialogue.negotiation().statesToSet(), WindowStates());
        dialogue.becomes(plain(elsewhere));
        QCOMPARE(dialogue.step(), Step::move);
        dialogue.becomes(plain(target));
        QCOMPARE(dialogue.step(), Step::setStates);
        QCOMPARE(dialogue.negotiation().statesToSet(), maximized | WindowState::above);
        dialogue.becomes(plain(display, true));
        QCOMPARE(dialogue.stepAfter(10ms), Step::wait);
        dialogue.becomes(FrameReading{display, target, maximized | WindowState::above});
        QCOMPARE(dialogue.stepAfter(200ms), Step::wait);
        QVERIFY(dialogue.isAccepted());

        // Right as it is, or but for a state that is no matter of its frame.
        Dialogue right(plain(display, true), maximized);
        QCOMPARE(right.step(), Step::wait);
        QVERIFY(right.isAccepted());
        Dialogue almost(plain(display, true), maximized | WindowState::above);
        QCOMPARE(almost.step(), Step::setStates);
        QCOMPARE(almost.negotiation().statesToSet(), maximized | WindowState::above);

        // Without any state to have, it must not fill the display even if that is its frame.
        Dialogue bare(plain(target, true), WindowStates());
        QCOMPARE(bare.step(), Step::setStates);
    }

    void goesOnWithoutWhatIsNotDone()
    {
        FrameReading reading = plain(elsewhere);
        reading.isOnDesktop = false;
        Dialogue dialogue(reading, WindowStates(WindowState::above));
        QCOMPARE(dialogue.step(), Step::setDesktop);
        QCOMPARE(dialogue.stepsDuring(1100ms),
                 (QList<Step>{Step::setDesktop, Step::setDesktop, Step::move}));
        reading.frame = target;
        dialogue.becomes(reading);
        QCOMPARE(dialogue.stepsDuring(1500ms), QList<Step>(3, Step::setStates));
        QVERIFY(dialogue.isAccepted());
        QVERIFY(dialogue.negotiation().isExact());
        QVERIFY(!dialogue.negotiation().isOnDesktop());
        QVERIFY(!dialogue.negotiation().hasStates());
    }

    void silenceIsARefusal()
    {
        Dialogue dialogue(plain({100, 100, 300, 200})); // where it is asked to be, in another size
        QCOMPARE(dialogue.step(), Step::move);
        const QList<Step> later = dialogue.stepsDuring(1500ms);
        QCOMPARE(later, (QList<Step>{Step::moveAround, Step::moveAround}));
        QVERIFY(dialogue.isRefused());

        Dialogue filled(plain(elsewhere, true)); // a state that stays
        QCOMPARE(filled.stepsDuring(1500ms), QList<Step>(3, Step::setStates));
        QVERIFY(filled.isRefused());

        Dialogue vanishing(plain(elsewhere));
        vanishing.step();
        vanishing.becomes(std::nullopt);
        QCOMPARE(vanishing.step(), Step::wait);
        QVERIFY(vanishing.isRefused());
    }

    void busyManagerIsNotPressed()
    {
        Dialogue dialogue(plain(elsewhere));
        QCOMPARE(dialogue.step(), Step::move);
        for (int other = 0; other < 8; ++other) {
            QCOMPARE(dialogue.stepAfter(100ms), Step::wait);
            dialogue.othersProgress();
        }
        QCOMPARE(dialogue.stepAfter(150ms), Step::moveAround);
    }

    void restlessWindowEndsTheDialogue()
    {
        Dialogue dialogue(plain(elsewhere));
        dialogue.step();
        for (int width = 300; !dialogue.negotiation().isOver(); ++width) {
            QVERIFY(width < 400);
            dialogue.becomes(plain(QRectF(100, 100, width, 200)));
            dialogue.stepAfter(50ms);
        }
        // It took the position, and it shows that the size is its own business.
        QVERIFY(dialogue.isAccepted());
    }

    void slowWindowIsNoRefusal()
    {
        // Like a program that leaves a state on a busy machine: it is on its way, but not there.
        Dialogue dialogue(plain(elsewhere));
        dialogue.step();
        for (int left = 200; !dialogue.negotiation().isOver(); ++left) {
            QVERIFY(left < 300);
            dialogue.becomes(plain(QRectF(left, 100, 300, 200)));
            dialogue.stepAfter(50ms);
        }
        QVERIFY(!dialogue.isAccepted() && dialogue.negotiation().isRestless());
    }
};

QTEST_GUILESS_MAIN(FrameNegotiationTest)
#include "FrameNegotiationTest.moc"
