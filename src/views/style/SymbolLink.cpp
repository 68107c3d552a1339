// SPDX-License-Identifier: MIT

#include "views/style/SymbolLink.h"

#include "views/style/Painting.h"

#include <QPainter>

namespace trovell {

namespace {

constexpr int linkHeight = 30;
constexpr int padding = 8;
constexpr int linkSymbolSize = 18;
constexpr int gap = 8;

} // namespace

SymbolLink::SymbolLink(const VisualStyle& visual, const QString& symbolName, const QString& text,
                       ColorToken color, QWidget* parent)
    : StyledButton(visual, text, parent), m_symbolName(symbolName), m_color(color)
{
    if (color == ColorToken::link)
        setCursor(Qt::PointingHandCursor);
}

QSize SymbolLink::sizeHint() const
{
    const TextStyle style = visual().text(TextRole::body);
    return {visual().scaledSum({padding, linkSymbolSize, gap, padding}) + textWidth(style, text()),
            visual().scaled(linkHeight)};
}

void SymbolLink::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setLayoutDirection(layoutDirection());
    QColor fill = visual().color(isDown() ? ColorToken::ghostPressed : ColorToken::ghostHover);
    fill.setAlphaF(fill.alphaF() * static_cast<float>(isDown() ? 1.0 : hovered()));
    paintBox(painter, rect(), cornerRadius(), fill);

    const QColor color = visual().color(isEnabled() ? m_color : ColorToken::labelDisabled);
    const int inset = visual().scaled(padding);
    const int side = visual().scaled(linkSymbolSize);
    const int textLeft = inset + side + visual().scaled(gap);
    const auto place = [&](const QRect& part) {
        return QStyle::visualRect(layoutDirection(), rect(), part);
    };
    visual().paintSymbol(painter, place({inset, 0, side, height()}), m_symbolName, color);
    paintLine(painter, place({textLeft, 0, width() - textLeft - inset, height()}),
              visual().text(TextRole::body), color, text());
}

double SymbolLink::cornerRadius() const
{
    return visual().radius(Radius::small);
}

} // namespace trovell
