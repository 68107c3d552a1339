// SPDX-License-Identifier: MIT

#include "services/update/BuiltInUpdateSource.h"

namespace trovell {

namespace {

std::optional<QString> builtInText(const char* text)
{
    const QString value = QString::fromUtf8(text);
    return value.isEmpty() ? std::nullopt : std::optional(value);
}

} // namespace

std::optional<QUrl> builtInFeedAddress()
{
    const auto text = builtInText(TROVELL_FEED_URL);
    return text ? std::optional(QUrl(*text)) : std::nullopt;
}

std::optional<QString> builtInPublicKey()
{
    return builtInText(TROVELL_UPDATE_PUBLIC_KEY);
}

} // namespace trovell
