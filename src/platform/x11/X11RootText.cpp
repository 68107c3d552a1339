// SPDX-License-Identifier: MIT

#include "platform/x11/X11RootText.h"

#include "platform/x11/X11Connection.h"

namespace trovell {

QByteArray x11RootText(const QByteArray& displayName, const QByteArray& property)
{
    const X11Connection connection(displayName);
    if (!connection.isAlive())
        return {};
    const auto request = connection.requestProperty(connection.root(), connection.atom(property));
    return propertyBytes(connection.reply(request));
}

} // namespace trovell
