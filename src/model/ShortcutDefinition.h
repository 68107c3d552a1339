// SPDX-License-Identifier: MIT
//
// A global keyboard shortcut and its stored form. Plain values, any thread.
#pragma once

#include <QByteArray>
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

/// One compact JSON object.
[[nodiscard]] QByteArray encodeShortcut(const ShortcutDefinition& shortcut);

/// None for bytes that are not one JSON object with all three members in their types and ranges.
/// Members it does not know are passed over.
[[nodiscard]] std::optional<ShortcutDefinition> decodeShortcut(const QByteArray& data);

} // namespace trovell
