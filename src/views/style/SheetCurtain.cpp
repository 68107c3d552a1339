// SPDX-License-Identifier: MIT

#include "views/style/SheetCurtain.h"

#include "views/style/Sheet.h"
#include "views/style/VisualStyle.h"

#include <QPainter>
#include <QVariantAnimation>

#include <cmath>

namespace trovell {

namespace {

constexpr int curtainMilliseconds = 180;
constexpr double firstScale = 0.98;

} // namespace

SheetCurtain::SheetCurtain(const VisualStyle& visual, Sheet& sheet) : m_picture(sheet.grab())
{
    setParent(&sheet);
    setGeometry(sheet.rect());
    // What lies below must not shine through: this widget replaces it in its own place.
    setAttribute(Qt::WA_OpaquePaintEvent);
    raise();
    show();
    auto* animation = new QVariantAnimation(this);
    animation->setStartValue(0.0);
    animation->setEndValue(1.0);
    animation->setDuration(visual.duration(curtainMilliseconds));
    animation->setEasingCurve(QEasingCurve::OutCubic);
    connect(animation, &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
        m_progress = value.toDouble();
        update();
    });
    connect(animation, &QVariantAnimation::finished, this, &QObject::deleteLater);
    animation->start();
}

void SheetCurtain::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(rect(), Qt::transparent);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setOpacity(m_progress);
    const double scale = std::lerp(firstScale, 1.0, m_progress);
    painter.translate(QRectF(rect()).center());
    painter.scale(scale, scale);
    painter.translate(-QRectF(rect()).center());
    painter.drawPixmap(0, 0, m_picture);
}

} // namespace trovell
