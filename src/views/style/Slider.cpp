// SPDX-License-Identifier: MIT

#include "views/style/Slider.h"

#include "views/style/Painting.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace trovell {

namespace {

constexpr int trackHeight = 4;
constexpr int knobSize = 18;
constexpr int sliderLabelGap = 12;
constexpr int tickGap = 6; ///< from the track to the ticks
constexpr QSizeF tickSize(2, 4);
constexpr int usualTrack = 250;
constexpr int narrowestTrack = 90;

} // namespace

Slider::Slider(const VisualStyle& visual, const QString& name, int minimum, int maximum,
               const QString& lowLabel, const QString& highLabel, QWidget* parent)
    : QSlider(Qt::Horizontal, parent), m_visual(visual), m_lowLabel(lowLabel),
      m_highLabel(highLabel)
{
    setAccessibleName(name);
    setRange(minimum, maximum);
    setSingleStep(1);
    setPageStep(1);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void Slider::setEndLabels(const QString& low, const QString& high)
{
    m_lowLabel = low;
    m_highLabel = high;
    updateGeometry();
    update();
}

QSize Slider::sizeHint() const
{
    const QSize least = minimumSizeHint();
    return {least.width() + usualTrack - narrowestTrack, least.height()};
}

QSize Slider::minimumSizeHint() const
{
    const TextStyle style = m_visual.text(TextRole::caption);
    const int labels = textWidth(style, m_lowLabel) + textWidth(style, m_highLabel);
    return {labels + 2 * sliderLabelGap + narrowestTrack,
            m_visual.scaled(knobSize) + 2 * focusRingReach};
}

FocusOutline Slider::focusOutline() const
{
    return {knobRect(), m_visual.scaled(knobSize) / 2.0};
}

QRectF Slider::trackRect() const
{
    const TextStyle style = m_visual.text(TextRole::caption);
    const int left = textWidth(style, m_lowLabel) + sliderLabelGap;
    const int right = textWidth(style, m_highLabel) + sliderLabelGap;
    const double top = (height() - trackHeight) / 2.0;
    const QRect track(left, static_cast<int>(top), std::max(1, width() - left - right),
                      trackHeight);
    return QStyle::visualRect(layoutDirection(), rect(), track);
}

double Slider::positionOf(int value) const
{
    const QRectF track = trackRect();
    const double half = m_visual.scaled(knobSize) / 2.0;
    const double span = std::max(1, maximum() - minimum());
    const double share = (value - minimum()) / span;
    const double along = half + share * (track.width() - 2 * half);
    return layoutDirection() == Qt::RightToLeft ? track.right() - along : track.left() + along;
}

int Slider::valueAt(double x) const
{
    const double low = positionOf(minimum());
    const double high = positionOf(maximum());
    const double share = (x - low) / (high == low ? 1 : high - low);
    const double value = minimum() + share * (maximum() - minimum());
    return std::clamp(static_cast<int>(std::lround(value)), minimum(), maximum());
}

QRectF Slider::knobRect() const
{
    const double side = m_visual.scaled(knobSize);
    const QPointF center(positionOf(sliderPosition()), trackRect().center().y());
    return {center - QPointF(side / 2, side / 2), QSizeF(side, side)};
}

void Slider::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setLayoutDirection(layoutDirection());
    paintLabels(painter);
    paintGroup(painter, rect(), isEnabled() ? 1 : disabledOpacity, [this](QPainter& group) {
        paintTrack(group);
        paintTicks(group);
        paintKnob(group);
    });
}

void Slider::paintLabels(QPainter& painter) const
{
    const TextStyle style = m_visual.text(TextRole::caption);
    const QColor color =
        m_visual.color(isEnabled() ? ColorToken::labelSecondary : ColorToken::labelDisabled);
    paintLine(painter, rect(), style, color, m_lowLabel, Qt::AlignLeft);
    paintLine(painter, rect(), style, color, m_highLabel, Qt::AlignRight);
}

void Slider::paintTrack(QPainter& painter) const
{
    const QRectF track = trackRect();
    const double radius = track.height() / 2;
    paintBox(painter, track, radius, m_visual.color(ColorToken::sliderTrack));
    QRectF done = track;
    const double knob = positionOf(sliderPosition());
    if (layoutDirection() == Qt::RightToLeft)
        done.setLeft(knob);
    else
        done.setRight(knob);
    paintBox(painter, done, radius, m_visual.color(ColorToken::action));
}

void Slider::paintTicks(QPainter& painter) const
{
    const double top = trackRect().bottom() + tickGap - 1;
    for (int value = minimum(); value <= maximum(); ++value) {
        const QPointF corner(positionOf(value) - tickSize.width() / 2, top);
        painter.fillRect(snapped(painter, QRectF(corner, tickSize)),
                         m_visual.color(ColorToken::fieldBorder));
    }
}

void Slider::paintKnob(QPainter& painter) const
{
    const QRectF knob = knobRect();
    const double radius = knob.height() / 2;
    paintBox(painter, knob, radius, m_visual.color(ColorToken::switchKnob),
             m_visual.color(ColorToken::controlBorderBottom));
}

void Slider::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    setSliderDown(true);
    setSliderPosition(valueAt(event->position().x()));
}

void Slider::mouseMoveEvent(QMouseEvent* event)
{
    if (isSliderDown())
        setSliderPosition(valueAt(event->position().x()));
}

void Slider::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        setSliderDown(false);
}

void Slider::wheelEvent(QWheelEvent* event)
{
    // Scrolling a page must not change the sliders that pass below the pointer.
    event->ignore();
}

void Slider::sliderChange(SliderChange change)
{
    QSlider::sliderChange(change);
    // All of it: the knob, and the focus ring that goes with it.
    update();
}

bool Slider::event(QEvent* event)
{
    if (event->type() == QEvent::FontChange)
        updateGeometry();
    return QSlider::event(event);
}

} // namespace trovell
