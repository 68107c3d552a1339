// SPDX-License-Identifier: MIT

#include "platform/x11/X11KeyboardLayout.h"

#include "platform/desktop/Keysym.h"

namespace trovell {

namespace {

// Of the X protocol.
constexpr quint16 lockMask = 1 << 1;
constexpr quint16 controlMask = 1 << 2;
constexpr int modifierCount = 8;

// X11/keysymdef.h.
constexpr quint32 keysymNumLock = 0xff7f;
constexpr quint32 keysymScrollLock = 0xff14;
constexpr quint32 keysymAltLeft = 0xffe9;
constexpr quint32 keysymAltRight = 0xffea;

} // namespace

std::optional<X11KeyCombination> X11KeyboardLayout::combination(QKeyCombination keys) const
{
    const auto keysym = keysymOf(keys.key());
    const auto keycode = keysym ? keycodeOf(*keysym) : std::nullopt;
    const auto bits = modifierBits(keys.keyboardModifiers());
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

std::optional<quint16> X11KeyboardLayout::modifierBits(Qt::KeyboardModifiers modifiers) const
{
    const quint16 left = modifierOf(keysymAltLeft);
    const quint16 alt = left != 0 ? left : modifierOf(keysymAltRight);
    const bool isAlt = modifiers.testFlag(Qt::AltModifier);
    if ((isAlt && alt == 0) || (modifiers & ~(Qt::ControlModifier | Qt::AltModifier)) != 0)
        return std::nullopt;
    const int control = modifiers.testFlag(Qt::ControlModifier) ? controlMask : 0;
    return static_cast<quint16>(control | (isAlt ? alt : 0));
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
