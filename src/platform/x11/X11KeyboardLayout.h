// SPDX-License-Identifier: MIT
//
// Which key of the keyboard in use carries a symbol, and which modifier bit a modifier key sets.
// Plain values; any thread.
#pragma once

#include <QKeyCombination>
#include <QList>

#include <optional>

namespace trovell {

/// A key with modifiers held, as the X server grabs it.
struct X11KeyCombination {
    quint8 keycode = 0;
    /// Core modifier bits (Shift 1, Lock 2, Control 4, Mod1 8, … Mod5 128), without locks.
    quint16 modifiers = 0;

    bool operator==(const X11KeyCombination&) const = default;
};

/// The keyboard and modifier mappings as the server reports them (X protocol, GetKeyboardMapping
/// and GetModifierMapping).
struct X11KeyboardLayout {
    quint8 firstKeycode = 8;
    int keysymsPerKeycode = 0;
    QList<quint32> keysyms = {};
    /// Eight rows of keycodes, one for each modifier bit; 0 is no key.
    QList<quint8> modifierKeycodes = {};

    /// None when the layout lacks one of the keys. Knows the modifiers Control and Alt.
    [[nodiscard]] std::optional<X11KeyCombination> combination(QKeyCombination keys) const;

    /// The modifier bits that may be set or not without making a difference: Lock, and those of
    /// Num Lock and Scroll Lock where the layout has them.
    [[nodiscard]] quint16 lockModifiers() const;

    bool operator==(const X11KeyboardLayout&) const = default;

private:
    [[nodiscard]] std::optional<quint8> keycodeOf(quint32 keysym) const;
    [[nodiscard]] bool hasKeysym(quint8 keycode, quint32 keysym) const;
    [[nodiscard]] quint16 modifierOf(quint32 keysym) const;
    [[nodiscard]] std::optional<quint16> modifierBits(Qt::KeyboardModifiers modifiers) const;
};

/// All values that the bits of `mask` can take together, zero and `mask` included.
[[nodiscard]] QList<quint16> combinationsOfBits(quint16 mask);

} // namespace trovell
