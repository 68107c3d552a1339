// SPDX-License-Identifier: MIT

#include "views/style/DesktopFont.h"

#include <algorithm>

namespace trovell {

namespace {

/// What Qt answers on X11 and offscreen when no desktop names a font.
constexpr double unsetPointSize = 9;

double defaultPointSize(const QString& desktop)
{
    return desktop.contains(u"GNOME", Qt::CaseInsensitive) ? 11 : 10;
}

} // namespace

double desktopFontFactor(double systemPointSize, const QString& desktop)
{
    const bool desktopTellsFont = desktop.contains(u"KDE", Qt::CaseInsensitive);
    if (systemPointSize <= 0 || (systemPointSize == unsetPointSize && !desktopTellsFont))
        return 1;
    return std::clamp(systemPointSize / defaultPointSize(desktop), 0.9, 1.5);
}

} // namespace trovell
