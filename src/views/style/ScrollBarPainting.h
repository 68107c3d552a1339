// SPDX-License-Identifier: MIT

#pragma once

#include <QRect>
#include <QStyle>

class QPainter;
class QStyleOptionComplex;
class QStyleOptionSlider;

namespace trovell {

class VisualStyle;

// The scroll bar is a thumb over the edge of the content: no track, no arrows, no room of its own.

constexpr int scrollBarExtent = 14; ///< how far from the edge the pointer reaches the thumb
constexpr int scrollThumbMinimumLength = 32;

/// The thumb and the two page areas before and after it; every other part is empty.
QRect scrollBarPart(const QStyleOptionSlider& bar, QStyle::SubControl part);

/// `thumb` is the whole reach of the thumb across the bar; what is painted is narrower.
void paintScrollBar(QPainter& painter, const VisualStyle& visual, const QStyleOptionComplex& bar,
                    const QRect& thumb);

} // namespace trovell
