// SPDX-License-Identifier: MIT

#include "display/NormalizedFrame.h"

#include <algorithm>

namespace trovell {

namespace {

bool hasArea(const QRectF& rectangle)
{
    return rectangle.width() > 0 && rectangle.height() > 0;
}

double overlapArea(const QRectF& a, const QRectF& b)
{
    const double width = std::min(a.x() + a.width(), b.x() + b.width()) - std::max(a.x(), b.x());
    const double height = std::min(a.y() + a.height(), b.y() + b.height()) - std::max(a.y(), b.y());
    return width > 0 && height > 0 ? width * height : 0;
}

} // namespace

NormalizedFrame normalizeFrame(const QRectF& frame, const QRectF& reference)
{
    if (!hasArea(reference))
        return {0, 0, 1, 1};
    return {(frame.x() - reference.x()) / reference.width(),
            (frame.y() - reference.y()) / reference.height(), frame.width() / reference.width(),
            frame.height() / reference.height()};
}

QRectF denormalizeFrame(const NormalizedFrame& frame, const QRectF& reference)
{
    return {reference.x() + frame.x * reference.width(),
            reference.y() + frame.y * reference.height(), frame.width * reference.width(),
            frame.height * reference.height()};
}

QRectF clampedFrame(const QRectF& frame, const QRectF& reference, double minimumWidth,
                    double minimumHeight)
{
    if (!hasArea(reference))
        return frame;
    // The size is cut first, so that the position always ends inside the reference.
    const double width = std::min(
        reference.width(), std::max(frame.width(), std::min(reference.width(), minimumWidth)));
    const double height = std::min(
        reference.height(), std::max(frame.height(), std::min(reference.height(), minimumHeight)));
    const double maxX = reference.x() + reference.width();
    const double maxY = reference.y() + reference.height();
    return {std::min(maxX - width, std::max(frame.x(), reference.x())),
            std::min(maxY - height, std::max(frame.y(), reference.y())), width, height};
}

std::optional<DisplaySnapshot> displayContaining(const QRectF& frame,
                                                 const QList<DisplaySnapshot>& displays)
{
    const auto best =
        std::max_element(displays.begin(), displays.end(), [&frame](const auto& a, const auto& b) {
            return overlapArea(frame, a.frame) < overlapArea(frame, b.frame);
        });
    return best == displays.end() ? std::nullopt : std::optional(*best);
}

} // namespace trovell
