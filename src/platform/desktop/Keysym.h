// SPDX-License-Identifier: MIT
//
// Keys as keysyms, by which X11 and xkb know them. Any thread.
#pragma once

#include <qnamespace.h>
#include <QtGlobal>

#include <optional>

namespace trovell {

/// The keysym of the key without Shift (X protocol, appendix A). None for keys that type no
/// character of Latin-1.
[[nodiscard]] std::optional<quint32> keysymOf(Qt::Key key);

} // namespace trovell
