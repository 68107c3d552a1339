// SPDX-License-Identifier: MIT

#include "views/style/Painting.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace trovell {

double deviceScale(const QPainter& painter)
{
    return std::abs(painter.deviceTransform().m11());
}

QRectF snapped(const QPainter& painter, const QRectF& rect)
{
    const QTransform& toDevice = painter.deviceTransform();
    if (toDevice.type() > QTransform::TxScale)
        return rect;
    const QRectF device = toDevice.mapRect(rect);
    const QPointF topLeft(std::round(device.left()), std::round(device.top()));
    const QPointF bottomRight(std::round(device.right()), std::round(device.bottom()));
    return toDevice.inverted().mapRect(QRectF(topLeft, bottomRight));
}

double hairline(const QPainter& painter)
{
    const double scale = deviceScale(painter);
    return std::max(1.0, std::floor(scale)) / scale;
}

void paintBox(QPainter& painter, const QRectF& rect, double radius, const QBrush& fill,
              const QBrush& border)
{
    const QRectF box = snapped(painter, rect);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(fill);
    painter.drawRoundedRect(box, radius, radius);
    if (border.style() != Qt::NoBrush) {
        const double width = hairline(painter);
        const double inset = width / 2;
        const double inner = std::max(0.0, radius - inset);
        painter.setPen(QPen(border, width));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(box.adjusted(inset, inset, -inset, -inset), inner, inner);
    }
    painter.restore();
}

void paintRing(QPainter& painter, const QRectF& rect, double radius, double width,
               const QColor& color)
{
    const double scale = deviceScale(painter);
    const double stroke = std::max(1.0, std::floor(width * scale)) / scale;
    const double inset = stroke / 2;
    const QRectF ring = snapped(painter, rect).adjusted(inset, inset, -inset, -inset);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, stroke));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(ring, std::max(0.0, radius - inset), std::max(0.0, radius - inset));
    painter.restore();
}

void paintHairline(QPainter& painter, const QRectF& rect, const QColor& color)
{
    QRectF rule = snapped(painter, rect);
    if (rect.width() >= rect.height())
        rule.setHeight(hairline(painter));
    else
        rule.setWidth(hairline(painter));
    // The edges are rounded to whole device pixels: this keeps them away from the halves.
    const double safety = 0.25 / deviceScale(painter);
    painter.fillRect(rule.adjusted(safety, safety, -safety, -safety), color);
}

void paintGroup(QPainter& painter, const QRectF& rect, double opacity,
                const std::function<void(QPainter&)>& paint)
{
    if (opacity >= 1) {
        paint(painter);
        return;
    }
    const double scale = deviceScale(painter);
    const QRectF area = snapped(painter, rect);
    QImage picture((area.size() * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::transparent);
    QPainter layer(&picture);
    layer.setLayoutDirection(painter.layoutDirection());
    layer.translate(-area.topLeft());
    paint(layer);
    layer.end();
    painter.save();
    painter.setOpacity(opacity);
    painter.drawImage(area.topLeft(), picture);
    painter.restore();
}

QColor mixed(const QColor& from, const QColor& to, double progress)
{
    if (progress <= 0)
        return from;
    if (progress >= 1)
        return to;
    // Mixed premultiplied, so that fading towards a transparent colour does not pass through black.
    const double alpha = std::lerp(from.alphaF(), to.alphaF(), progress);
    if (alpha <= 0)
        return Qt::transparent;
    const auto channel = [&](double a, double b) {
        return static_cast<float>(
            std::clamp(std::lerp(a * from.alphaF(), b * to.alphaF(), progress) / alpha, 0.0, 1.0));
    };
    return QColor::fromRgbF(channel(from.redF(), to.redF()), channel(from.greenF(), to.greenF()),
                            channel(from.blueF(), to.blueF()), static_cast<float>(alpha));
}

int symbolPixels(const QPainter& painter, const QRectF& box)
{
    const double side = std::min(box.width(), box.height());
    return static_cast<int>(std::lround(side * deviceScale(painter)));
}

void paintPixels(QPainter& painter, const QPointF& center, const QPixmap& picture)
{
    const QTransform& toDevice = painter.deviceTransform();
    const QPointF half(picture.width() / 2.0, picture.height() / 2.0);
    const QPoint topLeft = (toDevice.map(center) - half).toPoint();
    const QRectF target(topLeft, QSizeF(picture.size()));
    painter.drawPixmap(toDevice.inverted().mapRect(target), picture, QRectF(picture.rect()));
}

} // namespace trovell
