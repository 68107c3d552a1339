// SPDX-License-Identifier: MIT

#include "views/style/Painting.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace trovell {

namespace {

constexpr int stopCount = 24;
constexpr double fadeShare = 0.6;

/// A blurred edge seen across: the colours from `inside` within the box to `reach` outside of it.
struct Falloff {
    double inside;
    double reach;
    double deviation;
    QColor color;

    double length() const { return inside + reach; }

    /// The Gaussian edge, taken down to nothing over the last part of its reach.
    QColor at(double distance) const
    {
        const double edge = std::erfc(distance / (deviation * std::numbers::sqrt2)) / 2;
        const double remaining = std::clamp((reach - distance) / (fadeShare * reach), 0.0, 1.0);
        const double fade = remaining * remaining * (3 - 2 * remaining);
        QColor shade = color;
        shade.setAlphaF(static_cast<float>(color.alphaF() * edge * fade));
        return shade;
    }

    void fill(QGradient& gradient) const
    {
        for (int i = 0; i <= stopCount; ++i) {
            const double position = static_cast<double>(i) / stopCount;
            gradient.setColorAt(position, at(position * length() - inside));
        }
    }
};

void paintCorner(QPainter& painter, const QPointF& center, const QPointF& outer,
                 const Falloff& falloff)
{
    QRadialGradient gradient(center, falloff.length());
    falloff.fill(gradient);
    painter.fillRect(QRectF(center, outer).normalized(), gradient);
}

void paintEdge(QPainter& painter, const QRectF& band, const QPointF& start, const QPointF& stop,
               const Falloff& falloff)
{
    QLinearGradient gradient(start, stop);
    falloff.fill(gradient);
    painter.fillRect(band, gradient);
}

/// Edges and corners only: the middle always lies below an opaque box.
void paintLayer(QPainter& painter, const QRectF& box, const Falloff& falloff)
{
    const QRectF core =
        box.adjusted(falloff.inside, falloff.inside, -falloff.inside, -falloff.inside);
    const double length = falloff.length();
    const QRectF outer = core.adjusted(-length, -length, length, length);
    paintCorner(painter, core.topLeft(), outer.topLeft(), falloff);
    paintCorner(painter, core.topRight(), outer.topRight(), falloff);
    paintCorner(painter, core.bottomLeft(), outer.bottomLeft(), falloff);
    paintCorner(painter, core.bottomRight(), outer.bottomRight(), falloff);
    paintEdge(painter, QRectF(core.topLeft(), QPointF(core.right(), outer.top())).normalized(),
              core.topLeft(), QPointF(core.left(), outer.top()), falloff);
    paintEdge(painter, QRectF(core.bottomLeft(), QPointF(core.right(), outer.bottom())),
              core.bottomLeft(), QPointF(core.left(), outer.bottom()), falloff);
    paintEdge(painter, QRectF(core.topLeft(), QPointF(outer.left(), core.bottom())).normalized(),
              core.topLeft(), QPointF(outer.left(), core.top()), falloff);
    paintEdge(painter, QRectF(core.topRight(), QPointF(outer.right(), core.bottom())),
              core.topRight(), QPointF(outer.right(), core.top()), falloff);
}

} // namespace

void paintShadow(QPainter& painter, const QRectF& box, double radius,
                 const QList<ShadowLayer>& layers, double margin)
{
    painter.save();
    painter.setPen(Qt::NoPen);
    for (const ShadowLayer& layer : layers) {
        // A shadow that falls further than the margin allows is pulled in, not cut off.
        const double offset = std::min(layer.offset, margin / 3);
        const double reach = std::min(1.5 * layer.blur, margin - offset);
        const double inside = std::max(radius, offset + 1);
        const Falloff falloff{inside, reach, std::min(layer.blur / 2, reach / 1.5), layer.color};
        paintLayer(painter, snapped(painter, box.translated(0, offset)), falloff);
    }
    painter.restore();
}

} // namespace trovell
