// SPDX-License-Identifier: MIT

#include "platform/x11/X11WorkArea.h"

#include <algorithm>

namespace trovell {

namespace {

/// A stretch of one axis, `end` excluded.
struct Range {
    int begin = 0;
    int end = 0;

    bool isEmpty() const { return begin >= end; }
    bool holdsInside(int position) const { return begin < position && position < end; }
};

bool doOverlap(const Range& a, const Range& b)
{
    return a.begin < b.end && b.begin < a.end;
}

Range horizontal(const PixelRectangle& rectangle)
{
    return {rectangle.x, rectangle.x + rectangle.width};
}

Range vertical(const PixelRectangle& rectangle)
{
    return {rectangle.y, rectangle.y + rectangle.height};
}

PixelRectangle rectangleOf(const Range& x, const Range& y)
{
    return {x.begin, y.begin, x.end - x.begin, y.end - y.begin};
}

bool isHorizontal(Strut::Edge edge)
{
    return edge == Strut::Edge::left || edge == Strut::Edge::right;
}

/// Cuts `free` at the inner border of the strut. A border outside of the display belongs to a
/// panel on another display, or to none.
void cut(Range& free, const Range& display, const Strut& strut, int screenLength)
{
    const bool isAtBegin = strut.edge == Strut::Edge::left || strut.edge == Strut::Edge::top;
    const int border = isAtBegin ? strut.depth : screenLength - strut.depth;
    if (!display.holdsInside(border))
        return;
    if (isAtBegin)
        free.begin = std::max(free.begin, border);
    else
        free.end = std::min(free.end, border);
}

int length(quint32 number)
{
    constexpr quint32 limit = 1 << 24;
    return static_cast<int>(std::min(number, limit));
}

} // namespace

QList<Strut> makeStruts(const QList<quint32>& partial, const QList<quint32>& whole, QSize screen)
{
    constexpr qsizetype edgeCount = 4;
    const bool isPartial = partial.size() >= 3 * edgeCount;
    const QList<quint32>& numbers = isPartial ? partial : whole;
    QList<Strut> struts;
    if (numbers.size() < edgeCount)
        return struts;
    for (qsizetype index = 0; index < edgeCount; ++index) {
        const auto edge = static_cast<Strut::Edge>(index);
        const int edgeLength = isHorizontal(edge) ? screen.height() : screen.width();
        // The numbers name the last pixel of the span.
        const int begin = isPartial ? length(numbers.at(edgeCount + 2 * index)) : 0;
        const int end = isPartial ? length(numbers.at(edgeCount + 2 * index + 1)) + 1 : edgeLength;
        if (numbers.at(index) > 0)
            struts.append({edge, length(numbers.at(index)), begin, end});
    }
    return struts;
}

PixelRectangle withoutStruts(const PixelRectangle& display, const QList<Strut>& struts,
                             QSize screen)
{
    const Range wholeX = horizontal(display);
    const Range wholeY = vertical(display);
    Range freeX = wholeX;
    Range freeY = wholeY;
    for (const Strut& strut : struts) {
        const Range span = {strut.begin, strut.end};
        if (isHorizontal(strut.edge) && doOverlap(span, wholeY))
            cut(freeX, wholeX, strut, screen.width());
        else if (!isHorizontal(strut.edge) && doOverlap(span, wholeX))
            cut(freeY, wholeY, strut, screen.height());
    }
    return freeX.isEmpty() || freeY.isEmpty() ? display : rectangleOf(freeX, freeY);
}

PixelRectangle intersectedOrWhole(const PixelRectangle& display, const PixelRectangle& workArea)
{
    const auto common = [](const Range& a, const Range& b) {
        return Range{std::max(a.begin, b.begin), std::min(a.end, b.end)};
    };
    const Range x = common(horizontal(display), horizontal(workArea));
    const Range y = common(vertical(display), vertical(workArea));
    return x.isEmpty() || y.isEmpty() ? display : rectangleOf(x, y);
}

PixelRectangle withinOwnArea(const PixelRectangle& free, const PixelRectangle& display,
                             const QList<PixelRectangle>& areas)
{
    const auto contains = [&display](const PixelRectangle& area) {
        return area.width > 0 && area.height > 0 && area.x >= display.x && area.y >= display.y &&
               area.x + area.width <= display.x + display.width &&
               area.y + area.height <= display.y + display.height;
    };
    const auto own = std::ranges::find_if(areas, contains);
    return own == areas.end() ? free : intersectedOrWhole(free, *own);
}

QList<PixelRectangle> withoutHiddenPanels(QList<PixelRectangle> free,
                                          const QList<PixelRectangle>& displays, qsizetype main,
                                          const PixelRectangle& workArea, QSize screen)
{
    using Edge = Strut::Edge;
    const auto depthOf = [screen](const PixelRectangle& area, Edge edge) {
        switch (edge) {
        case Edge::left:
            return area.x;
        case Edge::right:
            return screen.width() - area.x - area.width;
        case Edge::top:
            return area.y;
        case Edge::bottom:
            return screen.height() - area.y - area.height;
        }
        return 0;
    };
    for (const Edge edge : {Edge::left, Edge::right, Edge::top, Edge::bottom}) {
        const int depth = depthOf(workArea, edge);
        const auto reachesEdge = [&](qsizetype index) {
            return index >= 0 && depthOf(displays.at(index), edge) == 0;
        };
        const auto accountsForIt = [&](const PixelRectangle& each) {
            return depthOf(each, edge) == depth;
        };
        if (depth <= 0 || workArea.width <= 0 || workArea.height <= 0 ||
            std::ranges::any_of(free, accountsForIt))
            continue;
        const Strut panel{edge, depth, 0, std::max(screen.width(), screen.height())};
        for (qsizetype index = 0; index < free.size(); ++index) {
            if (reachesEdge(index) && (index == main || !reachesEdge(main)))
                free[index] = intersectedOrWhole(
                    free.at(index), withoutStruts(displays.at(index), {panel}, screen));
        }
    }
    return free;
}

} // namespace trovell
