// SPDX-License-Identifier: MIT
//
// A global keyboard shortcut and its stored form. Plain values, any thread.
#pragma once

#include <QByteArray>
#include <QKeyCombination>
#include <QString>

#include <optional>

namespace trovell {

struct ShortcutDefinition {
    /// Virtual key code of the key; fixed numbers, whatever the keyboard in use.
    quint32 keyCode = 0;
    /// Mask: 0x1000 Control, 0x0800 Option (Alt).
    quint32 modifiers = 0;
    /// What lists and menus show.
    QString displayValue = {};

    bool operator==(const ShortcutDefinition&) const = default;
};

[[nodiscard]] size_t qHash(const ShortcutDefinition& shortcut, size_t seed = 0) noexcept;

/// The key with its modifiers. None when the definition names no digit from 1 to 5, or other
/// modifiers than Control, Option (Alt) or both.
[[nodiscard]] std::optional<QKeyCombination> keyCombination(const ShortcutDefinition& shortcut);

/// One compact JSON object.
[[nodiscard]] QByteArray encodeShortcut(const ShortcutDefinition& shortcut);

/// None for bytes that are not one JSON object with all three members in their types and ranges.
/// Members it does not know are passed over.
[[nodiscard]] std::optional<ShortcutDefinition> decodeShortcut(const QByteArray& data);

} // namespace trovell
