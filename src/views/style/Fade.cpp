// SPDX-License-Identifier: MIT

#include "views/style/Fade.h"

#include "views/style/VisualStyle.h"

#include <QEvent>
#include <QVariantAnimation>
#include <QWidget>

namespace trovell {

namespace {

constexpr int hoverMilliseconds = 80;

} // namespace

Fade::Fade(QWidget& widget, const VisualStyle& visual, int milliseconds)
    : m_widget(widget), m_visual(visual), m_milliseconds(milliseconds)
{
}

void Fade::moveTo(double target)
{
    const int duration = m_visual.duration(m_milliseconds);
    if (duration == 0 || !m_widget.isVisible()) {
        jumpTo(target);
        return;
    }
    delete m_animation;
    m_animation = new QVariantAnimation(&m_widget);
    m_animation->setStartValue(m_value);
    m_animation->setEndValue(target);
    m_animation->setDuration(duration);
    QObject::connect(m_animation, &QVariantAnimation::valueChanged, &m_widget,
                     [this](const QVariant& value) {
                         m_value = value.toDouble();
                         m_widget.update();
                     });
    m_animation->start(QAbstractAnimation::DeleteWhenStopped);
}

void Fade::jumpTo(double target)
{
    delete m_animation;
    m_value = target;
    m_widget.update();
}

HoverFade::HoverFade(QWidget& control, const VisualStyle& visual)
    : m_fade(control, visual, hoverMilliseconds)
{
    control.installEventFilter(this);
}

bool HoverFade::eventFilter(QObject* control, QEvent* event)
{
    const auto* widget = static_cast<QWidget*>(control);
    switch (event->type()) {
    case QEvent::Enter:
        m_fade.moveTo(widget->isEnabled() ? 1 : 0);
        break;
    case QEvent::Leave:
        m_fade.moveTo(0);
        break;
    case QEvent::EnabledChange:
        m_fade.jumpTo(widget->isEnabled() && widget->underMouse() ? 1 : 0);
        break;
    default:
        break;
    }
    return false;
}

} // namespace trovell
