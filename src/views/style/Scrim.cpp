// SPDX-License-Identifier: MIT

#include "views/style/Scrim.h"

#include "views/style/Painting.h"
#include "views/style/Sheet.h"
#include "views/style/VisualStyle.h"

#include <QEvent>
#include <QPainter>
#include <QTimer>
#include <QVariantAnimation>

#include <cmath>

namespace trovell {

namespace {

constexpr int appearMilliseconds = 180;
constexpr int dismissMilliseconds = 120;
constexpr double nestedShare = 0.6;
constexpr double firstScale = 0.98;

} // namespace

Scrim::Scrim(const VisualStyle& visual, QWidget& window)
    : Picture(&window), m_visual(visual), m_window(window),
      m_fadeIn(*this, visual, appearMilliseconds), m_fadeOut(*this, visual, dismissMilliseconds)
{
    setFocusPolicy(Qt::NoFocus);
    window.installEventFilter(this);
    cover();
}

void Scrim::appear()
{
    raise();
    show();
    m_fadeIn.moveTo(1);
}

void Scrim::dismiss(const QPixmap& ghost, const QPoint& screenPosition)
{
    m_ghost = ghost;
    m_ghostPosition = mapFromGlobal(screenPosition);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    m_fadeOut.moveTo(1);
    QTimer::singleShot(m_visual.duration(dismissMilliseconds), this, &QObject::deleteLater);
}

void Scrim::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const auto* sheet = qobject_cast<const Sheet*>(&m_window);
    const double remaining = 1 - m_fadeOut.value();
    painter.setOpacity(m_fadeIn.value() * remaining * (sheet ? nestedShare : 1));
    paintBox(painter, rect(), sheet ? sheet->boxRadius() : 0, m_visual.color(ColorToken::scrim));
    painter.setOpacity(remaining);
    if (!m_ghost.isNull())
        painter.drawPixmap(m_ghostPosition, m_ghost);
}

bool Scrim::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == &m_window && event->type() == QEvent::Resize)
        cover();
    return Picture::eventFilter(watched, event);
}

void Scrim::cover()
{
    const auto* sheet = qobject_cast<const Sheet*>(&m_window);
    setGeometry(sheet ? sheet->boxRect() : m_window.rect());
}

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
    animation->setDuration(visual.duration(appearMilliseconds));
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
