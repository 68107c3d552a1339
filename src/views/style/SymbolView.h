// SPDX-License-Identifier: MIT

#pragma once

#include "views/style/Picture.h"
#include "views/style/VisualStyle.h"

#include <optional>

namespace trovell {

/// A symbol as a picture. With an accessible name it is a graphic to assistive tools, without one
/// it is hidden from them.
class SymbolView : public Picture {
    Q_OBJECT

public:
    /// `size` in logical pixels at factor 1.
    SymbolView(const VisualStyle& visual, const QString& symbolName, int size,
               ColorToken color = ColorToken::brand, QWidget* parent = nullptr);

    void setSymbol(const QString& symbolName);
    void setColor(ColorToken color);
    /// Puts the symbol on a rounded tile of `side` logical pixels, as in a detail header.
    void setTile(int side, double radius, ColorToken fill = ColorToken::brandFill10);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    struct Tile {
        int side;
        double radius;
        ColorToken fill;
    };

    const VisualStyle& m_visual;
    QString m_symbolName;
    int m_size;
    ColorToken m_color;
    std::optional<Tile> m_tile;
};

} // namespace trovell
