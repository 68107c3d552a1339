// SPDX-License-Identifier: MIT

#include "views/style/Fade.h"

#include "views/style/VisualStyle.h"

#include <QVariantAnimation>
#include <QWidget>

namespace trovell {

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

} // namespace trovell
