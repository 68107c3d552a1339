// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace trovell {

/// How much larger than usual the desktop wants its text, 0.9 to 1.5: the system font's point size
/// over the size that desktop has out of the box. `desktop` is XDG_CURRENT_DESKTOP. A size of 0 or
/// less, and Qt's own fallback of 9 points where the desktop told nothing, count as usual.
double desktopFontFactor(double systemPointSize, const QString& desktop);

} // namespace trovell
