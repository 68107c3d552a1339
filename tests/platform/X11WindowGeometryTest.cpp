// SPDX-License-Identifier: MIT

#include "platform/x11/X11WindowGeometry.h"

#include "display/NormalizedFrame.h"
#include "windows/StoredForms.h"

#include <QtTest>

using namespace trovell;

namespace {

constexpr FrameExtents titleBar = {1, 1, 22, 5};
constexpr FrameExtents shadow = {61, 61, 55, 67};

/// WM_NORMAL_HINTS as the protocol carries it.
QList<quint32> hintNumbers(quint32 flags, QList<std::pair<int, quint32>> values)
{
    QList<quint32> numbers(18);
    numbers[0] = flags;
    for (const auto& [index, value] : values)
        numbers[index] = value;
    return numbers;
}

constexpr quint32 minimumFlag = 16;
constexpr quint32 maximumFlag = 32;
constexpr quint32 incrementsFlag = 64;
constexpr quint32 baseFlag = 256;

} // namespace

class X11WindowGeometryTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void sizeHintsFillInForEachOther()
    {
        const SizeHints onlyMinimum = makeSizeHints(hintNumbers(minimumFlag, {{5, 40}, {6, 30}}));
        QCOMPARE(onlyMinimum.baseWidth, 40);
        QCOMPARE(onlyMinimum.baseHeight, 30);
        // Values without their flag, a short property and an increment of zero are not to be
        // trusted.
        QCOMPARE(makeSizeHints(hintNumbers(0, {{5, 40}, {7, 50}, {9, 7}, {15, 9}})), SizeHints());
        QCOMPARE(makeSizeHints({incrementsFlag}), SizeHints());
        QCOMPARE(makeSizeHints({}), SizeHints());
    }

    void sizesAreRoundedToTheHints()
    {
        const SizeHints terminal =
            makeSizeHints(hintNumbers(minimumFlag | incrementsFlag | baseFlag,
                                      {{5, 10}, {6, 17}, {9, 6}, {10, 13}, {15, 4}, {16, 4}}));
        const SizeHints fixed = makeSizeHints(
            hintNumbers(minimumFlag | maximumFlag, {{5, 300}, {6, 200}, {7, 300}, {8, 200}}));
        const std::tuple<SizeHints, QSize, QSize> cases[]{
            {SizeHints(), {333, 222}, {333, 222}}, {SizeHints(), {-20, 0}, {1, 1}},
            {terminal, {484, 316}, {484, 316}},    {terminal, {485, 328}, {484, 316}},
            {terminal, {483, 315}, {478, 303}},    {terminal, {1, 1}, {10, 17}},
            {fixed, {800, 800}, {300, 200}},       {fixed, {100, 100}, {300, 200}}};
        for (const auto& [hints, wanted, allowed] : cases) {
            QCOMPARE(withAllowedSize({7, 8, wanted.width(), wanted.height()}, hints),
                     (PixelRectangle{7, 8, allowed.width(), allowed.height()}));
            // The decorations do not count as part of a cell.
            const PixelRectangle target = {7, 8, wanted.width() + 2, wanted.height() + 27};
            QCOMPARE(allowedFrame(target, {{}, titleBar, {}}, hints),
                     (PixelRectangle{7, 8, allowed.width() + 2, allowed.height() + 27}));
        }
    }

    void requestNamesTheFrameCornerAndTheClientSize()
    {
        QCOMPARE(visibleFrame({{101, 122, 400, 300}, titleBar, {}}),
                 (PixelRectangle{100, 100, 402, 327}));
        QCOMPARE(visibleFrame({{-16, -10, 822, 642}, {}, shadow}),
                 (PixelRectangle{45, 45, 700, 520}));

        const PixelRectangle target = {200, 150, 700, 520};
        constexpr quint32 flags = 1 | 0xf00 | 0x2000; // north-west, all four, from a pager
        QCOMPARE(moveResizeData(target, {{}, titleBar, {}}, {}),
                 (std::array<quint32, 5>{flags, 200, 150, 698, 493}));
        // The window reaches beyond what is seen of it.
        QCOMPARE(moveResizeData(target, {{}, {}, shadow}, {}),
                 (std::array<quint32, 5>{flags, 139, 95, 822, 642}));
        const auto left = moveResizeData({-50, 0, 100, 100}, {}, {}, 1);
        QCOMPARE(static_cast<qint32>(left[1]), -49);
    }

    void savingAndRestoringNeverDrifts()
    {
        const quint32 seed = QRandomGenerator::global()->generate();
        qInfo("seed %u", seed);
        QRandomGenerator random(seed);
        for (int round = 0; round < 2000; ++round) {
            const QRectF display(random.bounded(4000), random.bounded(2000), 1600, 1024);
            const StoredDisplays displays({{{}, display, display, 1.0, true}});
            const QRectF visible(random.bounded(1000), random.bounded(1000),
                                 random.bounded(1, 5000), random.bounded(1, 5000));
            const PixelRectangle window = {random.bounded(-3000, 6000), random.bounded(-3000, 6000),
                                           random.bounded(1, 5000), random.bounded(1, 5000)};
            PixelRectangle now = window;
            for (int cycle = 0; cycle < 3; ++cycle) {
                const QRectF stored = displays.storedFrame(frameFromPixels(now));
                const QRectF restored = denormalizeFrame(normalizeFrame(stored, visible), visible);
                now = pixelsFromFrame(displays.desktopFrame(restored));
            }
            QCOMPARE(now, window);
        }
    }
};

QTEST_GUILESS_MAIN(X11WindowGeometryTest)
#include "X11WindowGeometryTest.moc"
