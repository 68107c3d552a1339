// SPDX-License-Identifier: MIT

#include "platform/x11/X11KeyboardLayout.h"

#include <QHash>

#include <algorithm>

namespace trovell {

namespace {

// Of a shortcut's own mask.
constexpr quint32 controlModifier = 0x1000;
constexpr quint32 optionModifier = 0x0800;

// Of the X protocol.
constexpr quint16 lockMask = 1 << 1;
constexpr quint16 controlMask = 1 << 2;
constexpr int modifierCount = 8;

// X11/keysymdef.h.
constexpr quint32 keysymNumLock = 0xff7f;
constexpr quint32 keysymScrollLock = 0xff14;
constexpr quint32 keysymAltLeft = 0xffe9;
constexpr quint32 keysymAltRight = 0xffea;

/// The keysym of a fixed virtual key code; the codes are not in the order of the digits. A digit's
/// keysym is its character code.
std::optional<quint32> keysymOf(quint32 keyCode)
{
    static const QHash<quint32, quint32> digits{
        {18, u'1'}, {19, u'2'}, {20, u'3'}, {21, u'4'}, {23, u'5'}};
    const auto digit = digits.constFind(keyCode);
    return digit == digits.constEnd() ? std::nullopt : std::optional(*digit);
}

} // namespace

bool isPossibleHotKey(quint32 keyCode, quint32 modifiers)
{
    // Without a modifier nobody could type the digit any more.
    return keysymOf(keyCode) && modifiers != 0 &&
           (modifiers & ~(controlModifier | optionModifier)) == 0;
}

std::optional<X11KeyCombination> X11KeyboardLayout::combination(quint32 keyCode,
                                                                quint32 modifiers) const
{
    if (!isPossibleHotKey(keyCode, modifiers))
        return std::nullopt;
    const auto keycode = keycodeOf(*keysymOf(keyCode));
    const auto bits = modifierBits(modifiers);
    if (!keycode || !bits)
        return std::nullopt;
    return X11KeyCombination{*keycode, *bits};
}

quint16 X11KeyboardLayout::lockModifiers() const
{
    return lockMask | modifierOf(keysymNumLock) | modifierOf(keysymScrollLock);
}

std::optional<quint8> X11KeyboardLayout::keycodeOf(quint32 keysym) const
{
    // The digits of many layouts are on the second level of their keys, and some layouts have them
    // on a far level of another key too: the lowest level wins.
    std::optional<quint8> found;
    qsizetype foundLevel = keysymsPerKeycode;
    for (qsizetype i = 0; i < keysyms.size(); ++i) {
        if (keysyms[i] == keysym && i % keysymsPerKeycode < foundLevel) {
            foundLevel = i % keysymsPerKeycode;
            found = static_cast<quint8>(firstKeycode + i / keysymsPerKeycode);
        }
    }
    return found;
}

bool X11KeyboardLayout::hasKeysym(quint8 keycode, quint32 keysym) const
{
    if (keycode < firstKeycode)
        return false;
    const auto levels =
        keysyms.mid(qsizetype(keycode - firstKeycode) * keysymsPerKeycode, keysymsPerKeycode);
    return levels.contains(keysym);
}

quint16 X11KeyboardLayout::modifierOf(quint32 keysym) const
{
    const qsizetype keysPerModifier = modifierKeycodes.size() / modifierCount;
    for (qsizetype i = 0; i < keysPerModifier * modifierCount; ++i) {
        if (hasKeysym(modifierKeycodes[i], keysym))
            return static_cast<quint16>(1 << (i / keysPerModifier));
    }
    return 0;
}

std::optional<quint16> X11KeyboardLayout::modifierBits(quint32 modifiers) const
{
    const quint16 left = modifierOf(keysymAltLeft);
    const quint16 alt = left != 0 ? left : modifierOf(keysymAltRight);
    if ((modifiers & optionModifier) != 0 && alt == 0)
        return std::nullopt;
    const int bits = ((modifiers & controlModifier) != 0 ? controlMask : 0) |
                     ((modifiers & optionModifier) != 0 ? alt : 0);
    return static_cast<quint16>(bits);
}

QList<quint16> combinationsOfBits(quint16 mask)
{
    QList<quint16> combinations{0};
    for (int bit = 1; bit <= mask; bit <<= 1) {
        if ((mask & bit) == 0)
            continue;
        const QList<quint16> without = combinations;
        for (const quint16 combination : without)
            combinations.append(static_cast<quint16>(combination | bit));
    }
    return combinations;
}

} // namespace trovell
