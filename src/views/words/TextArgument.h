// SPDX-License-Identifier: MIT
//
// Values that take the places of the placeholders of a text. Any thread.
#pragma once

#include "views/words/TextKey.h"

#include <QString>
#include <QStringList>

#include <variant>

namespace trovell {

using TextArgument = std::variant<QString, NumberArgument>;

/// Both "%@" and "%lld" take the next of `values`; "%2$@" and "%2$lld" take the second whatever
/// stands before. One pass: what the values hold is never read as a placeholder. A placeholder
/// without a value stays as it is.
[[nodiscard]] QString filledIn(const QString& text, const QStringList& values);

/// The product's own text, as it is stored and handed between parts: the key with its values, the
/// numbers as plain digits. `Localization::shownText` shows it in the user's language.
template <Placeholder... kinds>
[[nodiscard]] QString productText(TextKey<kinds...> key, const ArgumentOf<kinds>&... arguments)
{
    [[maybe_unused]] const auto written = []<typename Argument>(const Argument& argument) {
        if constexpr (std::is_same_v<Argument, QString>)
            return argument;
        else
            return QString::number(argument.value);
    };
    return filledIn(key.text(), {written(arguments)...});
}

} // namespace trovell
