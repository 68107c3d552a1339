// SPDX-License-Identifier: MIT

#include "platform/desktop/Keysym.h"

#include <QChar>

namespace trovell {

std::optional<quint32> keysymOf(Qt::Key key)
{
    // Both name a key by the code of its character; keysyms know small letters.
    const auto code = static_cast<quint32>(key);
    return code >= 0x20 && code <= 0xff ? std::optional(QChar::toLower(code)) : std::nullopt;
}

} // namespace trovell
