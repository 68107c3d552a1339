// SPDX-License-Identifier: MIT

#include "display/NormalizedFrame.h"

#include <QtTest>

using namespace trovell;

namespace {

DisplaySnapshot display(const QRectF& frame)
{
    DisplaySnapshot snapshot{frame, frame, {}};
    snapshot.fingerprint.relativeX = frame.x();
    return snapshot;
}

double randomLength(QRandomGenerator& random, double from, double to)
{
    return from + random.generateDouble() * (to - from);
}

} // namespace

class NormalizedFrameTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aReferenceWithoutAreaIsHarmless()
    {
        const QRectF frame(10, 20, 30, 40);
        for (const QRectF& reference : {QRectF(5, 5, 0, 100), QRectF(5, 5, 100, 0)}) {
            QCOMPARE(normalizeFrame(frame, reference), (NormalizedFrame{0, 0, 1, 1}));
            QCOMPARE(clampedFrame(frame, reference, 240, 160), frame);
        }
    }

    void clampsIntoTheReference()
    {
        const QRectF desktop(0, 25, 1440, 875);
        const auto clamped = [](const QRectF& frame, const QRectF& reference) {
            return clampedFrame(frame, reference, 240, 160);
        };
        QCOMPARE(clamped({1400, 880, 40, 20}, desktop), QRectF(1200, 740, 240, 160));
        QCOMPARE(clamped({-200, 100, 3000, 600}, desktop), QRectF(0, 100, 1440, 600));
        QCOMPARE(clamped({9e9, -9e9, 800, 600}, desktop), QRectF(640, 25, 800, 600));
        QCOMPARE(clamped({0, 0, 500, 500}, {0, 0, 200, 100}), QRectF(0, 0, 200, 100));
    }

    void assignsAWindowToTheDisplayItCoversMost()
    {
        const auto left = display({0, 0, 1000, 1000});
        const auto right = display({1000, 0, 1000, 1000});
        QCOMPARE(displayContaining({900, 0, 300, 100}, {left, right}), std::optional(right));
        QCOMPARE(displayContaining({900, 0, 200, 100}, {left, right}), std::optional(left));
        QCOMPARE(displayContaining({900, 0, 200, 100}, {right, left}), std::optional(right));
        QCOMPARE(displayContaining({5000, 5000, 200, 100}, {left, right}), std::optional(left));
    }

    void randomFramesKeepTheirInvariants()
    {
        const quint32 seed = QRandomGenerator::global()->generate();
        qInfo("seed %u", seed);
        QRandomGenerator random(seed);
        for (int round = 0; round < 2000; ++round) {
            // Whole pixels, as desktops report them.
            const QRectF visible(random.bounded(-4000, 4000), random.bounded(-4000, 4000),
                                 random.bounded(1, 5000), random.bounded(1, 5000));
            const QRectF frame(random.bounded(-9000, 9000), random.bounded(-9000, 9000),
                               random.bounded(81, 6000), random.bounded(61, 6000));
            const QRectF again = denormalizeFrame(normalizeFrame(frame, visible), visible);
            QCOMPARE(again.toRect(), frame.toRect());

            const NormalizedFrame anywhere{randomLength(random, -3, 3), randomLength(random, -3, 3),
                                           randomLength(random, 0, 3), randomLength(random, 0, 3)};
            const QRectF placed =
                clampedFrame(denormalizeFrame(anywhere, visible), visible, 240, 160);
            const QRectF tolerant = visible.adjusted(-1e-9, -1e-9, 1e-9, 1e-9);
            QVERIFY(tolerant.contains(placed));
            QVERIFY(placed.width() >= std::min(240.0, visible.width()));
            QVERIFY(placed.height() >= std::min(160.0, visible.height()));
        }
    }
};

QTEST_GUILESS_MAIN(NormalizedFrameTest)
#include "NormalizedFrameTest.moc"
