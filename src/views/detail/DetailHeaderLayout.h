// SPDX-License-Identifier: MIT
//
// How the head of the detail view uses its width. Main thread.
#pragma once

#include "views/shared/ItemLayout.h"

#include <array>

namespace trovell {

/// Takes, in this order: the tile, the texts, two buttons and a menu. In one row while the texts
/// have room there. Else the buttons share a second row with the menu or, where even that is too
/// narrow for them, have a row each.
class DetailHeaderLayout : public ItemLayout {
    Q_OBJECT

public:
    using ItemLayout::ItemLayout;

    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSize() const override;
    void setGeometry(const QRect& area) override;

private:
    enum Part { tile, texts, firstButton, secondButton, menu, partCount };
    struct Places {
        std::array<QRect, partCount> parts;
        int height = 0;
    };

    [[nodiscard]] QSize sizeOf(Part part) const { return items()[size_t(part)]->sizeHint(); }
    [[nodiscard]] int widthOf(std::initializer_list<Part> parts, int gap) const;
    [[nodiscard]] Places places(int width) const;
    [[nodiscard]] Places titlePlaces(int width) const;
    /// Puts parts of these widths side by side, in the middle of a line that begins at `corner`.
    void addLine(Places& arranged, QPoint corner, int height,
                 std::initializer_list<std::pair<Part, int>> widths) const;
};

} // namespace trovell
