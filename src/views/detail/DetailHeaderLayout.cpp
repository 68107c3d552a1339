// SPDX-License-Identifier: MIT

#include "views/detail/DetailHeaderLayout.h"

#include <algorithm>

namespace trovell {

namespace {

constexpr int textGap = 16;
constexpr int rowGap = 16;
constexpr int buttonGap = 10;
/// The texts want at least so much beside the buttons.
constexpr int narrowestTexts = 236;

/// Moves a box so that it has as much room above as below.
void centerVertically(QRect& box, int height)
{
    box.moveTop((height - box.height()) / 2);
}

} // namespace

int DetailHeaderLayout::heightForWidth(int width) const
{
    return places(width).height;
}

QSize DetailHeaderLayout::sizeHint() const
{
    const int width = widthOf({tile, texts}, textGap) + textGap +
                      widthOf({firstButton, secondButton, menu}, buttonGap);
    return {width, heightForWidth(width)};
}

QSize DetailHeaderLayout::minimumSize() const
{
    const int width =
        std::max(sizeOf(firstButton).width(), widthOf({secondButton, menu}, buttonGap));
    return {width, sizeOf(tile).height()};
}

void DetailHeaderLayout::setGeometry(const QRect& area)
{
    QLayout::setGeometry(area);
    const Places arranged = places(area.width());
    for (size_t part = 0; part < items().size(); ++part)
        place(items()[part], area, arranged.parts[part]);
}

int DetailHeaderLayout::widthOf(std::initializer_list<Part> parts, int gap) const
{
    int width = gap * (int(parts.size()) - 1);
    for (const Part part : parts)
        width += sizeOf(part).width();
    return width;
}

DetailHeaderLayout::Places DetailHeaderLayout::places(int width) const
{
    const int buttons = widthOf({firstButton, secondButton, menu}, buttonGap);
    const int besideButtons = width - buttons - sizeOf(tile).width() - 2 * textGap;
    if (besideButtons >= narrowestTexts)
        return inOneRow(width);
    return buttons <= width ? inTwoRows(width) : inThreeRows(width);
}

DetailHeaderLayout::Places DetailHeaderLayout::titlePlaces(int width) const
{
    Places arranged;
    const QSize tileSize = sizeOf(tile);
    const int left = tileSize.width() + textGap;
    const int textWidth = std::max(0, width - left);
    const int textHeight = items()[texts]->heightForWidth(textWidth);
    arranged.height = std::max(tileSize.height(), textHeight);
    arranged.parts[tile] = QRect(QPoint(), tileSize);
    arranged.parts[texts] = QRect(left, 0, textWidth, textHeight);
    centerVertically(arranged.parts[texts], arranged.height);
    return arranged;
}

DetailHeaderLayout::Places DetailHeaderLayout::inOneRow(int width) const
{
    const int buttons = widthOf({firstButton, secondButton, menu}, buttonGap);
    Places arranged = titlePlaces(width - buttons - textGap);
    int left = width - buttons;
    for (const Part part : {firstButton, secondButton, menu}) {
        arranged.parts[part] = QRect(QPoint(left, 0), sizeOf(part));
        centerVertically(arranged.parts[part], arranged.height);
        left += sizeOf(part).width() + buttonGap;
    }
    return arranged;
}

DetailHeaderLayout::Places DetailHeaderLayout::inTwoRows(int width) const
{
    Places arranged = titlePlaces(width);
    const int top = arranged.height + rowGap;
    const int height = sizeOf(firstButton).height();
    const int shared = width - sizeOf(menu).width() - 2 * buttonGap;
    // In halves, unless one of them needs more.
    const int first = std::clamp(shared - shared / 2, sizeOf(firstButton).width(),
                                 shared - sizeOf(secondButton).width());
    arranged.parts[firstButton] = QRect(0, top, first, height);
    arranged.parts[secondButton] = QRect(first + buttonGap, top, shared - first, height);
    arranged.parts[menu] = QRect(QPoint(width - sizeOf(menu).width(), 0), sizeOf(menu));
    arranged.parts[menu].moveTop(top + (height - sizeOf(menu).height()) / 2);
    arranged.height = top + height;
    return arranged;
}

DetailHeaderLayout::Places DetailHeaderLayout::inThreeRows(int width) const
{
    Places arranged = titlePlaces(width);
    const int height = sizeOf(firstButton).height();
    const int firstTop = arranged.height + rowGap;
    const int secondTop = firstTop + height + buttonGap;
    const int buttonWidth = width - sizeOf(menu).width() - buttonGap;
    arranged.parts[firstButton] = QRect(0, firstTop, buttonWidth, height);
    arranged.parts[secondButton] = QRect(0, secondTop, buttonWidth, height);
    arranged.parts[menu] = QRect(QPoint(buttonWidth + buttonGap, 0), sizeOf(menu));
    arranged.parts[menu].moveTop(secondTop + (height - sizeOf(menu).height()) / 2);
    arranged.height = secondTop + height;
    return arranged;
}

} // namespace trovell
