#include "platform/x11/X11WorkArea.h"

#include <QTest>

using namespace trovell;

namespace {

// Two displays side by side, the right one lower and shorter; the X screen is the box around both.
constexpr PixelRectangle left = {0, 0, 1600, 1024};
constexpr PixelRectangle right = {1600, 200, 1280, 1024};
constexpr QSize screen = {2880, 1224};

} // namespace

class X11WorkAreaTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void strutsShrinkTheDisplayTheyTouch();
    void strutsAreReadFromEitherProperty();
    void workAreaThatIsOffIsIgnored();
};

void X11WorkAreaTest::strutsShrinkTheDisplayTheyTouch()
{
    using Edge = Strut::Edge;
    const auto verify = [](const QList<Strut>& struts, const PixelRectangle& leftFree,
                           const PixelRectangle& rightFree) {
        QCOMPARE(withoutStruts(left, struts, screen), leftFree);
        QCOMPARE(withoutStruts(right, struts, screen), rightFree);
    };
    verify({{Edge::top, 30, 0, 1600}}, {0, 30, 1600, 994}, right);
    // The screen's edge is 200 pixels above the display: the strut counts from there.
    verify({{Edge::top, 230, 1600, 2880}}, left, {1600, 230, 1280, 994});
    verify({{Edge::bottom, 40, 1600, 2880}}, left, {1600, 200, 1280, 984});
    // Between the displays: it would swallow the left one whole.
    verify({{Edge::left, 1650, 200, 1224}}, left, {1650, 200, 1230, 1024});
    verify({{Edge::right, 1330, 0, 1024}}, {0, 0, 1550, 1024}, right);
    verify({{Edge::left, 10, 0, 1224},
            {Edge::right, 20, 0, 1224},
            {Edge::top, 30, 0, 1600},
            {Edge::bottom, 40, 1600, 2880}},
           {10, 30, 1590, 994}, {1600, 200, 1260, 984});
    verify({{Edge::top, 600, 0, 1600}, {Edge::bottom, 900, 0, 1600}}, left, right);
}

void X11WorkAreaTest::strutsAreReadFromEitherProperty()
{
    const QList<quint32> partial = {0, 0, 30, 0, 0, 0, 0, 0, 1600, 2879, 0, 0};
    const QList<Strut> top = {{Strut::Edge::top, 30, 1600, 2880}};
    QCOMPARE(makeStruts(partial, {}, screen), top);
    // The older property has no span and gives way to the newer one.
    QCOMPARE(makeStruts(partial, {0, 0, 99, 0}, screen), top);
    QCOMPARE(makeStruts({}, {0, 7, 0, 0}, screen),
             (QList<Strut>{{Strut::Edge::right, 7, 0, 1224}}));
    QCOMPARE(makeStruts({}, {}, screen), QList<Strut>());
    QCOMPARE(makeStruts({1, 2, 3}, {1, 2, 3}, screen), QList<Strut>());
    // Nonsense is harmless.
    const QList<Strut> huge = makeStruts({}, {0xffffffff, 0, 0, 0xffffffff}, screen);
    QCOMPARE(withoutStruts(left, huge, screen), left);
}

void X11WorkAreaTest::workAreaThatIsOffIsIgnored()
{
    QCOMPARE(intersectedOrWhole(left, {0, 24, 1600, 1000}), (PixelRectangle{0, 24, 1600, 1000}));
    QCOMPARE(intersectedOrWhole(left, {0, 0, 5000, 1000}), (PixelRectangle{0, 0, 1600, 1000}));
    QCOMPARE(intersectedOrWhole(left, {0, 0, 0, 0}), left);
    QCOMPARE(intersectedOrWhole(left, {1600, 0, 500, 500}), left);
}

QTEST_GUILESS_MAIN(X11WorkAreaTest)
#include "X11WorkAreaTest.moc"
