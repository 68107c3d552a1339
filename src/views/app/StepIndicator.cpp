// SPDX-License-Identifier: MIT

#include "views/app/StepIndicator.h"

#include "views/app/PageFade.h"
#include "views/style/Painting.h"
#include "views/style/VisualStyle.h"

#include <QPainter>
#include <QStyle>
#include <QVariantAnimation>

#include <cmath>

namespace trovell {

namespace {

constexpr int barHeight = 6;
constexpr int shortBar = 8;
constexpr int longBar = 28;
constexpr int stepGap = 7;
constexpr float restOpacity = 0.2F;

} // namespace

StepIndicator::StepIndicator(const VisualStyle& visual, int stepCount, QWidget* parent)
    : QProgressBar(parent), m_visual(visual), m_change(new QVariantAnimation(this)),
      m_stepCount(stepCount)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setTextVisible(false);
    setRange(0, stepCount);
    setValue(1);
    m_change->setStartValue(0.0);
    m_change->setEndValue(1.0);
    m_change->setEasingCurve(QEasingCurve::InOutQuad);
    connect(m_change, &QVariantAnimation::valueChanged, this, [this] { update(); });
}

void StepIndicator::setStep(int step, bool isAnimated)
{
    m_previousStep = m_step;
    m_step = step;
    setValue(step + 1);
    m_change->stop();
    m_change->setDuration(isAnimated ? m_visual.duration(pageFadeMilliseconds) : 0);
    m_change->start();
    update();
}

QSize StepIndicator::sizeHint() const
{
    return {longBar + (m_stepCount - 1) * (shortBar + stepGap), barHeight};
}

double StepIndicator::share(int step) const
{
    const double progress =
        m_change->state() == QAbstractAnimation::Running ? m_change->currentValue().toDouble() : 1;
    return std::lerp(step == m_previousStep ? 1.0 : 0.0, step == m_step ? 1.0 : 0.0, progress);
}

void StepIndicator::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    QColor rest = m_visual.color(ColorToken::labelSecondary);
    rest.setAlphaF(restOpacity);
    double left = 0;
    for (int step = 0; step < m_stepCount; ++step) {
        const double width = std::lerp(shortBar, longBar, share(step));
        const double x = isRightToLeft() ? this->width() - left - width : left;
        paintBox(painter, {x, 0, width, barHeight}, barHeight / 2.0,
                 mixed(rest, m_visual.color(ColorToken::brand), share(step)));
        left += width + stepGap;
    }
}

} // namespace trovell
