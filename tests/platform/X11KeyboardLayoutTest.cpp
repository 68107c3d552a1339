#include "platform/x11/X11KeyboardLayout.h"

#include <QtTest>

using namespace trovell;

namespace {

constexpr quint32 option = 0x0800;
constexpr quint32 control = 0x1000;

constexpr quint32 altLeft = 0xffe9;
constexpr quint32 altRight = 0xffea;
constexpr quint32 capsLock = 0xffe5;
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

Q_DECLARE_METATYPE(std::optional<X11KeyCombination>)

class X11KeyboardLayoutTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void findsTheKeys_data();
    void findsTheKeys();
    void findsTheLocks_data();
    void findsTheLocks();
    void combinesBits();
};

void X11KeyboardLayoutTest::findsTheKeys_data()
{
    using Result = std::optional<X11KeyCombination>;
    QTest::addColumn<X11KeyboardLayout>("layout");
    QTest::addColumn<quint32>("keyCode");
    QTest::addColumn<quint32>("modifiers");
    QTest::addColumn<Result>("combination");

    const auto plain = layout({'1', '!', '2', '@', '5', '%', altLeft, 0}, 3, 13);
    QTest::newRow("one") << plain << 18U << (control | option) << Result({10, (1 << 2) | (1 << 3)});
    QTest::newRow("five is 23") << plain << 23U << control << Result({12, 1 << 2});
    QTest::newRow("22 is six") << plain << 22U << control << Result();
    QTest::newRow("digit is not there") << plain << 20U << control << Result();
    QTest::newRow("no modifiers") << plain << 18U << 0U << Result();
    QTest::newRow("unknown modifier") << plain << 18U << (control | 0x0200) << Result();
    QTest::newRow("shifted digits") << layout({'&', '1', 0xe9, '2', '"', '3', 0, altRight}, 4, 13)
                                    << 19U << option << Result({11, 1 << 4});
    QTest::newRow("lowest level wins") << layout({'m', '1', '1', '!', 'x', '1', altLeft, 0}) << 18U
                                       << control << Result({11, 1 << 2});
    QTest::newRow("the left Alt key tells")
        << layout({'1', '!', altRight, 0, altLeft, 0, 0, 0}, 5, 12) << 18U << option
        << Result({10, 1 << 5});
    QTest::newRow("no Alt key") << layout({'1', '!', 0, 0, 0, 0, 0, 0}) << 18U << (control | option)
                                << Result();
    QTest::newRow("Alt key sets no modifier")
        << layout({'1', '!', 0, 0, 0, 0, altLeft, 0}) << 18U << option << Result();
    QTest::newRow("modifier key below the first")
        << layout({'1', '!', altLeft, 0}, 3, 9) << 18U << option << Result();
    QTest::newRow("no keyboard") << X11KeyboardLayout() << 18U << control << Result();
}

void X11KeyboardLayoutTest::findsTheKeys()
{
    QFETCH(X11KeyboardLayout, layout);
    QFETCH(quint32, keyCode);
    QFETCH(quint32, modifiers);
    QFETCH(std::optional<X11KeyCombination>, combination);
    QCOMPARE(layout.combination(keyCode, modifiers), combination);
}

void X11KeyboardLayoutTest::findsTheLocks_data()
{
    QTest::addColumn<X11KeyboardLayout>("layout");
    QTest::addColumn<quint16>("locks");
    const auto withKey = [](quint32 keysym, qsizetype modifierIndex, quint8 keycode) {
        return layout({'1', '!', keysym, 0, 0, 0, 0, keysym}, modifierIndex, keycode);
    };
    QTest::newRow("Caps Lock only") << withKey(capsLock, 1, 11) << quint16(2);
    QTest::newRow("Num Lock") << withKey(numLock, 4, 11) << quint16(2 | 16);
    QTest::newRow("on the second level") << withKey(numLock, 7, 13) << quint16(2 | 128);
    QTest::newRow("Scroll Lock") << withKey(scrollLock, 5, 11) << quint16(2 | 32);
    QTest::newRow("sets no modifier") << withKey(scrollLock, 5, 12) << quint16(2);
    QTest::newRow("no keyboard") << X11KeyboardLayout() << quint16(2);
}

void X11KeyboardLayoutTest::findsTheLocks()
{
    QFETCH(X11KeyboardLayout, layout);
    QTEST(layout.lockModifiers(), "locks");
}

void X11KeyboardLayoutTest::combinesBits()
{
    QCOMPARE(combinationsOfBits(0), QList<quint16>{0});
    QCOMPARE(combinationsOfBits(2 | 16), (QList<quint16>{0, 2, 16, 18}));
    QCOMPARE(combinationsOfBits(1 | 2 | 0x8000).size(), 8);
}

QTEST_GUILESS_MAIN(X11KeyboardLayoutTest)
#include "X11KeyboardLayoutTest.moc"
