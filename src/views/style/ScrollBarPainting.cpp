// SPDX-License-Identifier: MIT

#include "views/style/ControlPainting.h"

#include "views/style/Painting.h"
#include "views/style/VisualStyle.h"

#include <QPainter>
#include <QStyleOption>

#include <algorithm>

namespace trovell {

namespace {

constexpr int edgeGap = 3;
constexpr int restingWidth = 6;
constexpr int hoveredWidth = 10;

struct Span {
    int start;
    int length;
};

Span thumbSpan(const QStyleOptionSlider& bar, int length)
{
    const int track = length - 2 * edgeGap;
    const qint64 range = qint64(bar.maximum) - bar.minimum;
    if (range <= 0)
        return {edgeGap, track};
    const int wanted = static_cast<int>(qint64(bar.pageStep) * track / (range + bar.pageStep));
    const int size = std::clamp(wanted, std::min(scrollThumbMinimumLength, track), track);
    const int position = QStyle::sliderPositionFromValue(
        bar.minimum, bar.maximum, bar.sliderPosition, track - size, bar.upsideDown);
    return {edgeGap + position, size};
}

} // namespace

QRect scrollBarPart(const QStyleOptionSlider& bar, QStyle::SubControl part)
{
    const bool isVertical = bar.orientation == Qt::Vertical;
    const int length = isVertical ? bar.rect.height() : bar.rect.width();
    const Span thumb = thumbSpan(bar, length);
    Span span{0, 0};
    switch (part) {
    case QStyle::SC_ScrollBarSlider:
        span = thumb;
        break;
    case QStyle::SC_ScrollBarSubPage:
        span = {0, thumb.start};
        break;
    case QStyle::SC_ScrollBarAddPage:
        span = {thumb.start + thumb.length, length - thumb.start - thumb.length};
        break;
    case QStyle::SC_ScrollBarGroove:
        span = {edgeGap, length - 2 * edgeGap};
        break;
    default:
        return {};
    }
    const QRect logical = isVertical ? QRect(0, span.start, bar.rect.width(), span.length)
                                     : QRect(span.start, 0, span.length, bar.rect.height());
    return QStyle::visualRect(bar.direction, bar.rect, logical.translated(bar.rect.topLeft()));
}

void paintScrollBar(QPainter& painter, const VisualStyle& visual, const QStyleOptionComplex& bar,
                    const QRect& thumb)
{
    const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(&bar);
    if (!slider || slider->maximum <= slider->minimum)
        return;
    const bool isWide = bar.state & (QStyle::State_MouseOver | QStyle::State_Sunken);
    const int width = isWide ? hoveredWidth : restingWidth;
    QRectF painted = thumb;
    if (slider->orientation == Qt::Horizontal) {
        painted.setTop(thumb.y() + thumb.height() - edgeGap - width);
        painted.setHeight(width);
    } else if (bar.direction == Qt::RightToLeft) {
        painted.setLeft(thumb.x() + edgeGap);
        painted.setWidth(width);
    } else {
        painted.setLeft(thumb.x() + thumb.width() - edgeGap - width);
        painted.setWidth(width);
    }
    paintBox(painter, painted, width / 2.0, visual.color(ColorToken::scrollThumb));
}

} // namespace trovell
