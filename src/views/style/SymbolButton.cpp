// SPDX-License-Identifier: MIT

#include "views/style/SymbolButton.h"

#include "views/style/Painting.h"

#include <QPainter>

namespace trovell {

namespace {

constexpr int destructiveSymbolSize = 18;

} // namespace

SymbolButton::SymbolButton(const VisualStyle& visual, const QString& symbolName,
                           const QString& name, Kind kind, QWidget* parent)
    : StyledButton(visual, {}, parent), m_symbolName(symbolName), m_kind(kind)
{
    setAccessibleName(name);
    setToolTip(name);
    if (kind == Kind::destructive)
        m_symbolSize = destructiveSymbolSize;
}

void SymbolButton::setSizes(int box, int symbol)
{
    m_boxSize = box;
    m_symbolSize = symbol;
    updateGeometry();
    update();
}

QSize SymbolButton::sizeHint() const
{
    const int side = visual().scaled(m_boxSize);
    return {side, side};
}

void SymbolButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const bool isDestructiveKind = m_kind == Kind::destructive;
    const bool isPressed = isEnabled() && isDown();
    QColor fill = visual().color(isDestructiveKind ? ColorToken::destructiveSoft
                                 : isPressed       ? ColorToken::ghostPressed
                                                   : ColorToken::ghostHover);
    fill.setAlphaF(fill.alphaF() * static_cast<float>(isPressed ? 1.0 : hovered()));
    paintBox(painter, rect(), cornerRadius(), fill);

    const QColor color = visual().color(!isEnabled()        ? ColorToken::labelDisabled
                                        : isDestructiveKind ? ColorToken::destructive
                                                            : ColorToken::labelPrimary);
    const double side = visual().scaled(m_symbolSize);
    const QPointF corner((width() - side) / 2, (height() - side) / 2);
    visual().paintSymbol(painter, QRectF(corner, QSizeF(side, side)), m_symbolName, color);
}

double SymbolButton::cornerRadius() const
{
    return visual().radius(Radius::small);
}

} // namespace trovell
