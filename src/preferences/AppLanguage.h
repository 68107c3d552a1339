// SPDX-License-Identifier: MIT
//
// The interface language that the user chooses. Plain values, any thread.
#pragma once

#include "support/Message.h"

#include <QList>
#include <QString>

#include <optional>

namespace trovell {

enum class AppLanguage {
    system,
    english,
    turkish,
    german,
    french,
    spanish,
    italian,
    japanese,
    korean,
    simplifiedChinese,
    brazilianPortuguese,
};

/// All cases in the order in which pickers show them.
[[nodiscard]] QList<AppLanguage> allLanguages();
/// The stored text, equal to the enumerator's name.
[[nodiscard]] QString rawValue(AppLanguage language);
[[nodiscard]] std::optional<AppLanguage> languageFromRawValue(const QString& rawValue);
/// The language's name in that language, verbatim; a key for `system`.
[[nodiscard]] Message displayName(AppLanguage language);
/// BCP 47 tag of the locale; empty for `system`, which follows the user's current locale.
[[nodiscard]] QString localeTag(AppLanguage language);

} // namespace trovell
