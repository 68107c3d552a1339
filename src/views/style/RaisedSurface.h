// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QRectF>

class QPainter;

namespace trovell {

class VisualStyle;

/// The box of a bordered control: `fill`, an outline that is stronger along the bottom, and the
/// disabled look instead of both where `isEnabled` is false.
void paintRaisedSurface(QPainter& painter, const VisualStyle& visual, const QRectF& box,
                        double radius, const QColor& fill, bool isEnabled);

} // namespace trovell
