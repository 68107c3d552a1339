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
    const int first = sizeOf(firstButton).width();
    const int second = sizeOf(secondButton).width();
    const int last = sizeOf(menu).width();
    const int buttons = widthOf({firstButton, secondButton, menu}, buttonGap);
    if (width - buttons - sizeOf(tile).width() - 2 * textGap >= narrowestTexts) {
        Places arranged = titlePlaces(width - buttons - textGap);
        addLine(arranged, {width - buttons, 0}, arranged.height,
                {{firstButton, first}, {secondButton, second}, {menu, last}});
        return arranged;
    }
    Places arranged = titlePlaces(width);
    const int height = sizeOf(firstButton).height();
    QPoint corner(0, arranged.height + rowGap);
    if (buttons <= width) {
        const int shared = width - last - 2 * buttonGap;
        // In halves, unless one of them needs more.
        const int half = std::clamp(shared - shared / 2, first, shared - second);
        addLine(arranged, corner, height,
                {{firstButton, half}, {secondButton, shared - half}, {menu, last}});
    } else {
        const int wide = width - last - buttonGap;
        addLine(arranged, corner, height, {{firstButton, wide}});
        corner.ry() += height + buttonGap;
        addLine(arranged, corner, height, {{secondButton, wide}, {menu, last}});
    }
    arranged.height = corner.y() + height;
    return arranged;
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
    arranged.parts[texts] = QRect(left, (arranged.height - textHeight) / 2, textWidth, textHeight);
    return arranged;
}

void DetailHeaderLayout::addLine(Places& arranged, QPoint corner, int height,
                                 std::initializer_list<std::pair<Part, int>> widths) const
{
    for (const auto& [part, width] : widths) {
        const int own = sizeOf(part).height();
        arranged.parts[part] = QRect(corner.x(), corner.y() + (height - own) / 2, width, own);
        corner.rx() += width + buttonGap;
    }
}

} // namespace trovell
