// SPDX-License-Identifier: MIT

#include "views/style/ProgressRing.h"

#include "views/style/Accessibility.h"
#include "views/style/VisualStyle.h"

#include <QPainter>
#include <QTimerEvent>

namespace trovell {

namespace {

constexpr int ringSize = 32;
constexpr int strokeWidth = 3;
constexpr int turnMilliseconds = 900;
constexpr int frameMilliseconds = 16;
// QPainter counts angles in sixteenths of a degree, counterclockwise.
constexpr int wholeTurn = 360 * 16;

} // namespace

ProgressRing::ProgressRing(const VisualStyle& visual, const QString& name, QWidget* parent)
    : QWidget(parent), m_visual(visual)
{
    setAccessibleRole(*this, QAccessible::ProgressBar);
    setAccessibleName(name);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize ProgressRing::sizeHint() const
{
    const int side = m_visual.scaled(ringSize);
    return {side, side};
}

void ProgressRing::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double inset = strokeWidth / 2.0;
    const QRectF ring = QRectF(rect()).adjusted(inset, inset, -inset, -inset);
    painter.setPen(QPen(m_visual.color(ColorToken::sliderTrack), strokeWidth));
    painter.drawEllipse(ring);
    const qint64 elapsed = isTurning() ? m_clock.elapsed() % turnMilliseconds : 0;
    const int turned = static_cast<int>(elapsed * wholeTurn / turnMilliseconds);
    painter.setPen(
        QPen(m_visual.color(ColorToken::brand), strokeWidth, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(ring, wholeTurn / 4 - turned, -wholeTurn / 4);
}

void ProgressRing::showEvent(QShowEvent*)
{
    m_clock.start();
    if (!m_visual.isAnimationReduced())
        m_timer.start(frameMilliseconds, this);
}

void ProgressRing::hideEvent(QHideEvent*)
{
    m_timer.stop();
}

void ProgressRing::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == m_timer.timerId())
        update();
    else
        QWidget::timerEvent(event);
}

} // namespace trovell
