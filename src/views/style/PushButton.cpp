// SPDX-License-Identifier: MIT

#include "views/style/PushButton.h"

#include "views/style/Painting.h"

#include <QPainter>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

constexpr int chevronSize = 16;
constexpr int chevronGap = 6;

bool isFilled(PushButton::Kind kind)
{
    return kind == PushButton::Kind::prominent || kind == PushButton::Kind::destructive;
}

} // namespace

PushButton::PushButton(const VisualStyle& visual, const QString& text, Kind kind, Scale scale,
                       QWidget* parent)
    : StyledButton(visual, text, parent), m_kind(kind), m_scale(scale)
{
}

void PushButton::setKind(Kind kind)
{
    if (m_kind == kind)
        return;
    m_kind = kind;
    updateGeometry();
    update();
}

QSize PushButton::sizeHint() const
{
    const int width = 2 * padding() + textWidth(textStyle(), text()) + chevronRoom();
    return {width, visual().scaled(isSmall() ? Tokens::Size::controlHeightSmall
                                             : Tokens::Size::controlHeight)};
}

void PushButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setLayoutDirection(layoutDirection());
    paintSurface(painter, surfaceColor(surface()), !isFilled(m_kind));
    const QRect content = rect().adjusted(padding(), 0, -padding(), 0);
    const int room = chevronRoom();
    const auto place = [&](const QRect& part) {
        return QStyle::visualRect(layoutDirection(), content, part);
    };
    paintLine(painter, place(content.adjusted(0, 0, -room, 0)), textStyle(), textColor(), text(),
              Qt::AlignHCenter);
    if (room > 0) {
        const int side = visual().scaled(chevronSize);
        const QRect chevron(content.x() + content.width() - side + 2, 0, side, height());
        visual().paintSymbol(painter, place(chevron), u"_ui/chevron.down"_s, textColor());
    }
}

double PushButton::cornerRadius() const
{
    return visual().radius(isSmall() ? Radius::iconChoice : Radius::control);
}

int PushButton::padding() const
{
    // The design's padding lies inside a border of one pixel.
    return visual().scaled(isSmall() ? 11 : 14) + 1;
}

int PushButton::chevronRoom() const
{
    return menu() ? visual().scaled(chevronGap + chevronSize - 2) : 0;
}

TextStyle PushButton::textStyle() const
{
    return visual().text(isSmall() ? TextRole::callout : TextRole::body,
                         isFilled(m_kind) ? QFont::DemiBold : QFont::Medium);
}

StyledButton::Surface PushButton::surface() const
{
    switch (m_kind) {
    case Kind::prominent:
        return {ColorToken::action, ColorToken::actionHover, ColorToken::actionPressed};
    case Kind::destructive:
        return {ColorToken::destructiveFill, ColorToken::destructiveHover,
                ColorToken::destructivePressed};
    case Kind::bordered:
    case Kind::destructiveText:
        break;
    }
    return {ColorToken::controlBackground, ColorToken::controlHover, ColorToken::controlPressed};
}

QColor PushButton::textColor() const
{
    if (!isEnabled())
        return visual().color(ColorToken::labelDisabled);
    switch (m_kind) {
    case Kind::prominent:
        return visual().color(ColorToken::onAction);
    case Kind::destructive:
        return visual().color(ColorToken::onDestructive);
    case Kind::destructiveText:
        return visual().color(ColorToken::destructive);
    case Kind::bordered:
        break;
    }
    return visual().color(ColorToken::labelPrimary);
}

} // namespace trovell
