// SPDX-License-Identifier: MIT

#include "views/style/RowPainting.h"

#include "views/style/Painting.h"
#include "views/style/VisualStyle.h"

#include <QPainter>

#include <algorithm>

namespace trovell {

namespace {

constexpr double dropLineWidth = 2;
constexpr double dropRingSize = 6;
constexpr double dropLineInset = 4; ///< how much shorter than the row it ends
constexpr double dropLineTop = 3;   ///< so that nothing is cut above the first row

} // namespace

void paintRowBackground(QPainter& painter, const VisualStyle& visual, const QRect& row,
                        const RowState& state)
{
    const double radius = visual.radius(Radius::control);
    if (state.isSelected)
        paintBox(painter, row, radius,
                 visual.color(state.isWindowActive ? ColorToken::selection
                                                   : ColorToken::selectionInactive));
    else if (state.isHovered)
        paintBox(painter, row, radius, visual.color(ColorToken::rowHover));
    if (state.hasFocus)
        paintRing(painter, row, radius, visual.tokens().size(Tokens::Size::focusRingWidth),
                  visual.color(ColorToken::focusRing));
}

void paintDropLine(QPainter& painter, const VisualStyle& visual, const QRect& row,
                   Qt::LayoutDirection direction)
{
    const QColor color = visual.color(ColorToken::dropLine);
    const double middle = std::max(row.y() - dropLineWidth / 2, dropLineTop);
    const bool isMirrored = direction == Qt::RightToLeft;
    const double start = isMirrored ? row.x() + row.width() - dropRingSize : row.x();
    const QRectF ring(start, middle - dropRingSize / 2, dropRingSize, dropRingSize);
    paintRing(painter, ring, dropRingSize / 2, dropLineWidth, color);
    const double length = row.width() - dropRingSize - dropLineInset;
    const double lineStart = isMirrored ? row.x() + dropLineInset : row.x() + dropRingSize;
    const QRectF line(lineStart, middle - dropLineWidth / 2, length, dropLineWidth);
    painter.fillRect(snapped(painter, line), color);
}

void paintLiftedRow(QPainter& painter, const VisualStyle& visual, const QRect& row)
{
    const double radius = visual.radius(Radius::control);
    paintShadow(painter, row, radius, visual.shadow(Palette::Shadow::shadowMenu), liftedRowMargin);
    paintBox(painter, row, radius, visual.color(ColorToken::popoverBackground),
             visual.color(ColorToken::popoverBorder));
}

} // namespace trovell
