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

class X11KeyboardLayoutTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void findsTheKeys();
    void findsTheLocks();
};

void X11KeyboardLayoutTest::findsTheKeys()
{
    using Result = std::optional<X11KeyCombination>;
    const auto plain = layout({'1', '!', '2', '@', '5', '%', altLeft, 0}, 3, 13);
    QCOMPARE(plain.combination(18, control | option), Result({10, (1 << 2) | (1 << 3)}));
    QCOMPARE(plain.combination(23, control), Result({12, 1 << 2})); // five
    QCOMPARE(plain.combination(22, control), Result());             // six
    QCOMPARE(plain.combination(18, 0), Result());
    QCOMPARE(plain.combination(18, control | 0x0200), Result());
    const auto shifted = layout({'&', '1', 0xe9, '2', '"', '3', 0, altRight}, 4, 13);
    QCOMPARE(shifted.combination(19, option), Result({11, 1 << 4}));
    const auto twice = layout({'m', '1', '1', '!', 'x', '1', altLeft, 0});
    QCOMPARE(twice.combination(18, control), Result({11, 1 << 2})); // the lowest level
    const auto bothAlts = layout({'1', '!', altRight, 0, altLeft, 0, 0, 0}, 5, 12);
    QCOMPARE(bothAlts.combination(18, option), Result({10, 1 << 5})); // the left one tells
    // An Alt key that is missing or sets no modifier.
    for (const quint32 key : {0U, altLeft})
        QCOMPARE(layout({'1', '!', 0, 0, 0, 0, key, 0}).combination(18, option), Result());
    QCOMPARE(X11KeyboardLayout().combination(18, control), Result());
}

void X11KeyboardLayoutTest::findsTheLocks()
{
    const auto locks = [](quint32 keysym, qsizetype modifierIndex, quint8 keycode) {
        return layout({'1', '!', keysym, 0, 0, 0, 0, keysym}, modifierIndex, keycode)
            .lockModifiers();
    };
    QCOMPARE(locks(capsLock, 1, 11), 2);
    QCOMPARE(locks(numLock, 4, 11), 2 | 16);
    QCOMPARE(locks(numLock, 7, 13), 2 | 128); // on the second level
    QCOMPARE(locks(scrollLock, 5, 11), 2 | 32);
    QCOMPARE(locks(scrollLock, 5, 12), 2); // sets no modifier
    QCOMPARE(X11KeyboardLayout().lockModifiers(), 2);
    QCOMPARE(combinationsOfBits(2 | 16), (QList<quint16>{0, 2, 16, 18}));
}

QTEST_GUILESS_MAIN(X11KeyboardLayoutTest)
#include "X11KeyboardLayoutTest.moc"
