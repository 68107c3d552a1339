// SPDX-License-Identifier: MIT
//
// The colour appearance that the user chooses for the windows. Plain values,
// any thread.
#pragma once

#include "support/Message.h"

#include <QList>
#include <QString>

#include <optional>

namespace trovell {

enum class AppAppearance { light, system, dark };

/// All cases in the order in which pickers show them.
[[nodiscard]] QList<AppAppearance> allAppearances();
/// The stored text.
[[nodiscard]] QString rawValue(AppAppearance appearance);
[[nodiscard]] std::optional<AppAppearance> appearanceFromRawValue(const QString& rawValue);
/// The text in pickers.
[[nodiscard]] Message displayName(AppAppearance appearance);

} // namespace trovell
