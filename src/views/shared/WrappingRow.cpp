// SPDX-License-Identifier: MIT

#include "views/shared/WrappingRow.h"

#include <algorithm>

namespace trovell {

int WrappingRow::heightForWidth(int width) const
{
    int height = 0;
    for (const QRect& place : places(width))
        height = std::max(height, place.y() + place.height());
    return height;
}

QSize WrappingRow::sizeHint() const
{
    int width = 0;
    for (const auto& item : items())
        width += item->sizeHint().width() + m_gap;
    width = std::max(0, width - m_gap);
    return {width, heightForWidth(width)};
}

QSize WrappingRow::minimumSize() const
{
    QSize widest;
    for (const auto& item : items())
        widest = widest.expandedTo(item->sizeHint());
    return widest;
}

void WrappingRow::setGeometry(const QRect& area)
{
    QLayout::setGeometry(area);
    const QList<QRect> arranged = places(area.width());
    for (size_t index = 0; index < items().size(); ++index)
        place(items()[index], area, arranged[qsizetype(index)]);
}

QList<QRect> WrappingRow::places(int width) const
{
    QList<QRect> arranged;
    QPoint corner;
    int rowHeight = 0;
    for (const auto& item : items()) {
        const QSize size = item->sizeHint();
        if (corner.x() > 0 && corner.x() + size.width() > width) {
            corner = {0, corner.y() + rowHeight + m_gap};
            rowHeight = 0;
        }
        arranged.append(QRect(corner, size));
        corner.rx() += size.width() + m_gap;
        rowHeight = std::max(rowHeight, size.height());
    }
    return arranged;
}

} // namespace trovell
