// SPDX-License-Identifier: MIT

#include "views/style/ActionButton.h"

#include <QPainter>

#include <algorithm>

namespace trovell {

namespace {

constexpr int leadingPadding = 13;
constexpr int trailingPadding = 15;
constexpr int symbolSize = 20;
constexpr int symbolGap = 10;
constexpr int titleLineHeight = 18;

} // namespace

ActionButton::ActionButton(const VisualStyle& visual, const QString& symbolName,
                           const QString& title, const QString& subtitle, Kind kind,
                           QWidget* parent)
    : StyledButton(visual, title, parent), m_symbolName(symbolName), m_kind(kind)
{
    // Two of them may share the width of a narrow window.
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
    setTexts(title, subtitle);
}

void ActionButton::setTexts(const QString& title, const QString& subtitle)
{
    m_title = title;
    m_subtitle = subtitle;
    setText(title);
    setAccessibleDescription(subtitle);
    updateGeometry();
    update();
}

void ActionButton::setBusyTitle(const QString& title)
{
    setText(title.isEmpty() ? m_title : title);
}

QSize ActionButton::sizeHint() const
{
    const int text = std::max(textWidth(titleStyle(), m_title),
                              textWidth(visual().text(TextRole::caption2), m_subtitle));
    const int width = visual().scaledSum({leadingPadding, symbolSize, symbolGap, trailingPadding});
    return {width + text, visual().scaled(Tokens::Size::controlHeightTwoLine)};
}

void ActionButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setLayoutDirection(layoutDirection());
    const bool isProminent = m_kind == Kind::prominent;
    const Surface surface =
        isProminent
            ? Surface{ColorToken::action, ColorToken::actionHover, ColorToken::actionPressed}
            : Surface{ColorToken::controlBackground, ColorToken::controlHover,
                      ColorToken::controlPressed};
    paintSurface(painter, surfaceColor(surface), !isProminent);

    const auto tint = [&](ColorToken bordered, ColorToken prominent) {
        return visual().color(!isEnabled()  ? ColorToken::labelDisabled
                              : isProminent ? prominent
                                            : bordered);
    };
    const auto place = [&](const QRectF& part) {
        return QStyle::visualRect(layoutDirection(), rect(), part.toRect());
    };
    const QColor titleColor = tint(ColorToken::labelPrimary, ColorToken::onAction);
    const int left = visual().scaled(leadingPadding);
    const int side = visual().scaled(symbolSize);
    visual().paintSymbol(painter, place(QRectF(left, (height() - side) / 2, side, side)),
                         m_symbolName, titleColor);

    const TextStyle title = titleStyle();
    const TextStyle subtitle = visual().text(TextRole::caption2);
    const int textLeft = left + side + visual().scaled(symbolGap);
    const int textRoom = width() - textLeft - visual().scaled(trailingPadding);
    const int top = (height() - title.lineHeight - subtitle.lineHeight) / 2;
    paintLine(painter, place(QRectF(textLeft, top, textRoom, title.lineHeight)), title, titleColor,
              text());
    paintLine(painter,
              place(QRectF(textLeft, top + title.lineHeight, textRoom, subtitle.lineHeight)),
              subtitle, tint(ColorToken::labelSecondary, ColorToken::onActionSubtitle), m_subtitle);
}

double ActionButton::cornerRadius() const
{
    return visual().radius(Radius::menu);
}

TextStyle ActionButton::titleStyle() const
{
    TextStyle style = visual().text(TextRole::body, QFont::DemiBold);
    style.lineHeight = visual().scaled(titleLineHeight);
    return style;
}

} // namespace trovell
