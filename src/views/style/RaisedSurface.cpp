// SPDX-License-Identifier: MIT

#include "views/style/RaisedSurface.h"

#include "views/style/Painting.h"
#include "views/style/VisualStyle.h"

namespace trovell {

namespace {

/// Along the bottom, from below the middle of the corners, the outline has a colour of its own.
QBrush raisedBorder(const VisualStyle& visual, const QRectF& box, double radius)
{
    const double turn = 1 - 0.3 * radius / box.height();
    QLinearGradient border(box.topLeft(), box.bottomLeft());
    border.setColorAt(0, visual.color(ColorToken::controlBorder));
    border.setColorAt(turn - 0.001, visual.color(ColorToken::controlBorder));
    border.setColorAt(turn, visual.color(ColorToken::controlBorderBottom));
    border.setColorAt(1, visual.color(ColorToken::controlBorderBottom));
    return border;
}

} // namespace

void paintRaisedSurface(QPainter& painter, const VisualStyle& visual, const QRectF& box,
                        double radius, const QColor& fill, bool isEnabled)
{
    if (isEnabled)
        paintBox(painter, box, radius, fill, raisedBorder(visual, box, radius));
    else
        paintBox(painter, box, radius, visual.color(ColorToken::controlDisabled),
                 visual.color(ColorToken::controlDisabledBorder));
}

} // namespace trovell
