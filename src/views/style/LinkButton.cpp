// SPDX-License-Identifier: MIT

#include "views/style/LinkButton.h"

#include <QPainter>

namespace trovell {

namespace {

constexpr double linkRadius = 5;

} // namespace

LinkButton::LinkButton(const VisualStyle& visual, const QString& text, QWidget* parent)
    : StyledButton(visual, text, parent)
{
    setCursor(Qt::PointingHandCursor);
}

QSize LinkButton::sizeHint() const
{
    const TextStyle style = visual().text(TextRole::body, QFont::Medium);
    return {textWidth(style, text()), style.lineHeight};
}

void LinkButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setLayoutDirection(layoutDirection());
    TextStyle style = visual().text(TextRole::body, QFont::Medium);
    const bool isHovered = isEnabled() && !isDown() && hovered() > 0;
    style.font.setUnderline(isHovered);
    const QColor color =
        isEnabled()
            ? surfaceColor({ColorToken::link, ColorToken::linkHover, ColorToken::linkPressed})
            : visual().color(ColorToken::labelDisabled);
    paintLine(painter, rect(), style, color, text());
}

double LinkButton::cornerRadius() const
{
    return linkRadius;
}

} // namespace trovell
