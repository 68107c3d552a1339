// SPDX-License-Identifier: MIT
//
// The part of a display that panels leave free. Root pixels, pure, any thread.
#pragma once

#include "platform/x11/X11WindowGeometry.h"

#include <QList>
#include <QSize>

namespace trovell {

/// The space that one window reserves at an edge of the X screen, along part of that edge.
struct Strut {
    enum class Edge { left, right, top, bottom };

    Edge edge = Edge::left;
    /// From the edge of the X screen, also when a display lies between it and the panel.
    int depth = 0;
    /// The part of the edge, `end` excluded.
    int begin = 0;
    int end = 0;

    bool operator==(const Strut&) const = default;
};

/// From the numbers of _NET_WM_STRUT_PARTIAL, or of _NET_WM_STRUT where that is missing (EWMH
/// section 5). Both may be empty.
[[nodiscard]] QList<Strut> makeStruts(const QList<quint32>& partial, const QList<quint32>& whole,
                                      QSize screen);

/// `display` without the struts that reach into it; all of it when nothing would be left.
[[nodiscard]] PixelRectangle withoutStruts(const PixelRectangle& display,
                                           const QList<Strut>& struts, QSize screen);

/// The common part, or `display` when the two have none: desktops announce an empty work area for
/// a moment while displays change.
[[nodiscard]] PixelRectangle intersectedOrWhole(const PixelRectangle& display,
                                                const PixelRectangle& workArea);

/// The same with that one of several areas, one for each display, that lies on this display.
[[nodiscard]] PixelRectangle withinOwnArea(const PixelRectangle& free,
                                           const PixelRectangle& display,
                                           const QList<PixelRectangle>& areas);

/// `free` of all displays, less what a work area for the whole screen leaves out at an edge and no
/// display accounts for: that is a panel on the main display if it reaches there, else on every
/// display that does.
[[nodiscard]] QList<PixelRectangle>
withoutHiddenPanels(QList<PixelRectangle> free, const QList<PixelRectangle>& displays,
                    qsizetype main, const PixelRectangle& workArea, QSize screen);

} // namespace trovell
