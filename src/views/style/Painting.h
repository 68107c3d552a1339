// SPDX-License-Identifier: MIT

#pragma once

#include "views/style/Tokens.h"

#include <QBrush>
#include <QPixmap>
#include <QRectF>

#include <functional>

class QPainter;

/// Drawing shared by the controls. All lengths are logical pixels of the painter unless a name says
/// otherwise; edges come to lie on whole device pixels at every scale factor.
namespace trovell {

/// Device pixels per logical pixel, with whatever scaling the painter has.
double deviceScale(const QPainter& painter);

/// Every edge moved to the nearest device pixel.
QRectF snapped(const QPainter& painter, const QRectF& rect);

/// Width of a line of one logical pixel: a whole number of device pixels and at least one.
double hairline(const QPainter& painter);

/// Fills a rounded box and strokes its inner edge, one hairline wide.
void paintBox(QPainter& painter, const QRectF& rect, double radius, const QBrush& fill,
              const QBrush& border = Qt::NoBrush);

/// Strokes a rounded ring whose outer edge is `rect`, `width` rounded down to whole device pixels.
void paintRing(QPainter& painter, const QRectF& rect, double radius, double width,
               const QColor& color);

/// Fills a horizontal or vertical rule: the hairline along the longer side of `rect`, at its top or
/// left edge.
void paintHairline(QPainter& painter, const QRectF& rect, const QColor& color);

/// Paints the soft shadow of a rounded box. It has faded out completely at `margin` outside `box`,
/// so that a window with that margin cuts nothing.
void paintShadow(QPainter& painter, const QRectF& box, double radius,
                 const QList<ShadowLayer>& layers, double margin);

/// Paints what `paint` paints inside `rect` as one picture at `opacity`, so that what overlaps in
/// it does not shine through.
void paintGroup(QPainter& painter, const QRectF& rect, double opacity,
                const std::function<void(QPainter&)>& paint);

/// How much of a disabled switch, check box, slider or swatch is left.
constexpr double disabledOpacity = 0.42;

/// `from` turned into `to` by the share `progress`, 0 to 1, alpha included.
QColor mixed(const QColor& from, const QColor& to, double progress);

/// The whole number of device pixels a square picture filling the shorter side of `box` has.
int symbolPixels(const QPainter& painter, const QRectF& box);

/// Paints a picture made of device pixels unscaled around `center`.
void paintPixels(QPainter& painter, const QPointF& center, const QPixmap& picture);

} // namespace trovell
