// SPDX-License-Identifier: MIT

#include "views/style/FocusRing.h"

#include "views/style/ControlPainting.h"
#include "views/style/Painting.h"
#include "views/style/VisualStyle.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFocusFrame>
#include <QPainter>
#include <QSlider>
#include <QStyleOption>

namespace trovell {

namespace {

bool hasOutline(const QWidget* widget)
{
    return dynamic_cast<const FocusOutlined*>(widget) || qobject_cast<const QCheckBox*>(widget) ||
           qobject_cast<const QComboBox*>(widget) || qobject_cast<const QSlider*>(widget);
}

QRectF knobOf(const VisualStyle& visual, const QSlider& slider)
{
    QStyleOptionSlider option;
    option.initFrom(&slider);
    option.minimum = slider.minimum();
    option.maximum = slider.maximum();
    option.sliderPosition = slider.sliderPosition();
    option.upsideDown = slider.isRightToLeft();
    return sliderKnob(visual, option);
}

FocusOutline outlineOf(const VisualStyle& visual, const QWidget& widget)
{
    if (const auto* outlined = dynamic_cast<const FocusOutlined*>(&widget))
        return outlined->focusOutline();
    if (const auto* slider = qobject_cast<const QSlider*>(&widget)) {
        const QRectF knob = knobOf(visual, *slider);
        return {knob, knob.height() / 2};
    }
    if (!qobject_cast<const QCheckBox*>(&widget))
        return {widget.rect(), double(visual.radius(Radius::control))};
    QStyleOption option;
    option.initFrom(&widget);
    return {checkBoxIndicator(visual, option), checkBoxRadius};
}

} // namespace

FocusRing::FocusRing(QApplication& application, VisualStyle* visual) : QObject(visual)
{
    connect(&application, &QApplication::focusChanged, this,
            [this](QWidget*, QWidget* now) { follow(now); });
}

FocusRing::~FocusRing()
{
    delete m_frame;
}

void FocusRing::follow(QWidget* focused)
{
    if (!hasOutline(focused)) {
        delete m_frame;
        return;
    }
    if (!m_frame)
        m_frame = new QFocusFrame;
    m_frame->setWidget(focused);
}

void paintFocusFrame(QPainter& painter, const VisualStyle& visual, const QFocusFrame& frame)
{
    const QWidget* widget = frame.widget();
    if (!hasOutline(widget))
        return;
    const FocusOutline outline = outlineOf(visual, *widget);
    const QPoint origin =
        widget->mapTo(widget->window(), QPoint()) - frame.mapTo(frame.window(), QPoint());
    const double reach = focusRingReach;
    const QRectF ring = outline.box.translated(origin).adjusted(-reach, -reach, reach, reach);
    paintRing(painter, ring, outline.radius + reach,
              visual.tokens().size(Tokens::Size::focusRingWidth),
              visual.color(ColorToken::focusRing));
}

} // namespace trovell
