// SPDX-License-Identifier: MIT

#include "views/style/SymbolView.h"

#include "views/style/Painting.h"

#include <QPainter>

namespace trovell {

SymbolView::SymbolView(const VisualStyle& visual, const QString& symbolName, int size,
                       ColorToken color, QWidget* parent)
    : Picture(parent), m_visual(visual), m_symbolName(symbolName), m_size(size), m_color(color)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void SymbolView::setSymbol(const QString& symbolName)
{
    m_symbolName = symbolName;
    update();
}

void SymbolView::setColor(ColorToken color)
{
    m_color = color;
    update();
}

void SymbolView::setTile(int side, double radius, ColorToken fill)
{
    m_tile = Tile{side, radius, fill};
    updateGeometry();
    update();
}

QSize SymbolView::sizeHint() const
{
    const int side = m_visual.scaled(m_tile ? m_tile->side : m_size);
    return {side, side};
}

void SymbolView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (m_tile)
        paintBox(painter, rect(), m_tile->radius, m_visual.color(m_tile->fill));
    const double side = m_visual.scaled(m_size);
    const QPointF corner((width() - side) / 2, (height() - side) / 2);
    m_visual.paintSymbol(painter, QRectF(corner, QSizeF(side, side)), m_symbolName,
                         m_visual.color(isEnabled() ? m_color : ColorToken::labelDisabled));
}

} // namespace trovell
