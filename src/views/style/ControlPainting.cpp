// SPDX-License-Identifier: MIT

#include "views/style/ControlPainting.h"

#include "views/style/FocusRing.h"
#include "views/style/Painting.h"
#include "views/style/VisualStyle.h"

#include <QPainter>
#include <QStyleOption>

#include <algorithm>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

constexpr TextRole checkBoxText = TextRole::callout;
constexpr int checkBoxGap = 8;
constexpr double checkBoxBorder = 1.5;
constexpr int checkSize = 14;
constexpr double checkStroke = 3;

// One pixel of each is the border.
constexpr int comboLeading = 13;
constexpr int comboTrailing = 9;
constexpr int comboSymbol = 16;
constexpr int comboGap = 8;

constexpr int trackHeight = 4;
constexpr int knobSize = 18;
constexpr int tickGap = 5; ///< from the track to the ticks
constexpr QSizeF tickSize(2, 4);
constexpr int usualSlider = 250;

/// Along the bottom, from below the middle of the corners, the outline has a colour of its own.
QBrush raisedBorder(const VisualStyle& visual, const QRectF& box, double radius)
{
    const double turn = 1 - 0.3 * radius / box.height();
    QLinearGradient border(box.topLeft(), box.bottomLeft());
    border.setColorAt(0, visual.color(ColorToken::controlBorder));
    border.setColorAt(turn - 0.001, visual.color(ColorToken::controlBorder));
    border.setColorAt(turn, visual.color(ColorToken::controlBorderBottom));
    border.setColorAt(1, visual.color(ColorToken::controlBorderBottom));
    return border;
}

bool isEnabled(const QStyleOption& option)
{
    return option.state & QStyle::State_Enabled;
}

QColor textColor(const VisualStyle& visual, const QStyleOption& option,
                 ColorToken enabled = ColorToken::labelPrimary)
{
    return visual.color(isEnabled(option) ? enabled : ColorToken::labelDisabled);
}

QRect placed(const QStyleOption& option, const QRect& part)
{
    return QStyle::visualRect(option.direction, option.rect,
                              part.translated(option.rect.topLeft()));
}

void paintIndicator(QPainter& painter, const VisualStyle& visual, const QRectF& box, bool isOn)
{
    if (!isOn) {
        paintBox(painter, box, checkBoxRadius, visual.color(ColorToken::fieldBackground));
        paintRing(painter, box, checkBoxRadius, checkBoxBorder,
                  visual.color(ColorToken::fieldBorder));
        return;
    }
    paintBox(painter, box, checkBoxRadius, visual.color(ColorToken::action));
    const double inset = (box.width() - visual.scaled(checkSize)) / 2;
    visual.paintSymbol(painter, box.adjusted(inset, inset, -inset, -inset), u"_ui/checkmark"_s,
                       visual.color(ColorToken::onAction), checkStroke);
}

/// Horizontal middle of the knob at a value.
double sliderPosition(const VisualStyle& visual, const QStyleOptionSlider& option, int value)
{
    const QRectF track = sliderTrack(option);
    const double half = visual.scaled(knobSize) / 2.0;
    const double share =
        double(value - option.minimum) / std::max(1, option.maximum - option.minimum);
    const double along = half + share * (track.width() - 2 * half);
    return option.upsideDown ? track.right() - along : track.left() + along;
}

void paintTrack(QPainter& painter, const VisualStyle& visual, const QStyleOptionSlider& option)
{
    const QRectF track = sliderTrack(option);
    const double radius = track.height() / 2;
    paintBox(painter, track, radius, visual.color(ColorToken::sliderTrack));
    QRectF done = track;
    const double knob = sliderPosition(visual, option, option.sliderPosition);
    if (option.upsideDown)
        done.setLeft(knob);
    else
        done.setRight(knob);
    paintBox(painter, done, radius, visual.color(ColorToken::action));
    for (int value = option.minimum; value <= option.maximum; ++value) {
        const QPointF corner(sliderPosition(visual, option, value) - tickSize.width() / 2,
                             track.bottom() + tickGap);
        painter.fillRect(snapped(painter, QRectF(corner, tickSize)),
                         visual.color(ColorToken::fieldBorder));
    }
}

} // namespace

void paintRaisedSurface(QPainter& painter, const VisualStyle& visual, const QRectF& box,
                        double radius, const QColor& fill, bool isEnabled)
{
    if (isEnabled)
        paintBox(painter, box, radius, fill, raisedBorder(visual, box, radius));
    else
        paintBox(painter, box, radius, visual.color(ColorToken::controlDisabled),
                 visual.color(ColorToken::controlDisabledBorder));
}

void paintCheckBox(QPainter& painter, const VisualStyle& visual, const QStyleOptionButton& option)
{
    const QRect box = checkBoxIndicator(visual, option);
    const bool isOn = option.state & QStyle::State_On;
    paintGroup(painter, box, isEnabled(option) ? 1 : disabledOpacity,
               [&](QPainter& group) { paintIndicator(group, visual, box, isOn); });
    const int left = box.width() + visual.scaled(checkBoxGap);
    painter.setLayoutDirection(option.direction);
    paintLine(painter, placed(option, {left, 0, option.rect.width() - left, option.rect.height()}),
              visual.text(checkBoxText), textColor(visual, option), option.text);
}

QRect checkBoxIndicator(const VisualStyle& visual, const QStyleOption& option)
{
    const int side = visual.scaled(Tokens::Size::checkbox);
    return placed(option, {0, (option.rect.height() - side) / 2, side, side});
}

QSize checkBoxSize(const VisualStyle& visual, const QStyleOptionButton& option)
{
    const int side = visual.scaled(Tokens::Size::checkbox);
    if (option.text.isEmpty())
        return {side, side};
    const TextStyle style = visual.text(checkBoxText);
    return {side + visual.scaled(checkBoxGap) + textWidth(style, option.text),
            std::max(side, style.lineHeight)};
}

void paintComboBox(QPainter& painter, const VisualStyle& visual, const QStyleOptionComboBox& option)
{
    const ColorToken fill = option.state & QStyle::State_On ? ColorToken::controlPressed
                            : option.state & QStyle::State_MouseOver
                                ? ColorToken::controlHover
                                : ColorToken::controlBackground;
    paintRaisedSurface(painter, visual, option.rect, visual.radius(Radius::control),
                       visual.color(fill), isEnabled(option));
    const int side = visual.scaled(comboSymbol);
    const int height = option.rect.height();
    const int symbolLeft = option.rect.width() - visual.scaled(comboTrailing) - side;
    const int textLeft = visual.scaled(comboLeading);
    const int textRoom = symbolLeft - visual.scaled(comboGap) - textLeft;
    painter.setLayoutDirection(option.direction);
    paintLine(painter, placed(option, {textLeft, 0, textRoom, height}), visual.text(TextRole::body),
              textColor(visual, option), option.currentText);
    visual.paintSymbol(painter, placed(option, {symbolLeft, 0, side, height}),
                       u"_ui/chevron.up.down"_s,
                       textColor(visual, option, ColorToken::labelSecondary));
}

QSize comboBoxSize(const VisualStyle& visual, int textWidth)
{
    return {textWidth + visual.scaledSum({comboLeading, comboGap, comboSymbol, comboTrailing}),
            visual.scaled(Tokens::Size::controlHeight)};
}

void paintProgressBar(QPainter& painter, const VisualStyle& visual,
                      const QStyleOptionProgressBar& option)
{
    const QRect bar = option.rect;
    const double radius = bar.height() / 2.0;
    paintBox(painter, bar, radius, visual.color(ColorToken::sliderTrack));
    const double share =
        double(option.progress - option.minimum) / std::max(1, option.maximum - option.minimum);
    if (share <= 0)
        return;
    // Never less than a full round end.
    const int done = std::max(bar.height(), int(bar.width() * share));
    paintBox(painter, placed(option, {0, 0, done, bar.height()}), radius,
             visual.color(ColorToken::action));
}

void paintSlider(QPainter& painter, const VisualStyle& visual, const QStyleOptionSlider& option)
{
    paintGroup(painter, option.rect, isEnabled(option) ? 1 : disabledOpacity, [&](QPainter& group) {
        paintTrack(group, visual, option);
        const QRectF knob = sliderKnob(visual, option);
        paintBox(group, knob, knob.height() / 2, visual.color(ColorToken::switchKnob),
                 visual.color(ColorToken::controlBorderBottom));
    });
}

QRectF sliderTrack(const QStyleOptionSlider& option)
{
    const int top = (option.rect.height() - trackHeight) / 2;
    return {QPointF(option.rect.x(), option.rect.y() + top),
            QSizeF(option.rect.width(), trackHeight)};
}

QRectF sliderKnob(const VisualStyle& visual, const QStyleOptionSlider& option)
{
    const double side = visual.scaled(knobSize);
    const QPointF center(sliderPosition(visual, option, option.sliderPosition),
                         sliderTrack(option).center().y());
    return {center - QPointF(side / 2, side / 2), QSizeF(side, side)};
}

QSize sliderSize(const VisualStyle& visual)
{
    return {usualSlider, visual.scaled(knobSize) + 2 * focusRingReach};
}

} // namespace trovell
