// SPDX-License-Identifier: MIT
//
// Texts that window managers leave on the root window. Any thread, which waits for the server.
#pragma once

#include <QByteArray>

namespace trovell {

/// Empty when there is no such text, or no server at that display.
[[nodiscard]] QByteArray x11RootText(const QByteArray& displayName, const QByteArray& property);

} // namespace trovell
