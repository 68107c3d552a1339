// SPDX-License-Identifier: MIT
//
// An attached display as the desktop reports it. A plain value, any thread.
#pragma once

#include <QRectF>
#include <QString>

namespace trovell {

/// Rectangles are in desktop coordinates: logical pixels, origin at the top left of the whole
/// desktop, y downward.
struct Display {
    QString name;
    QRectF frame;
    /// The part of `frame` that panels and docks leave free.
    QRectF workArea;
    /// Device pixels for each logical one.
    double scale = 1.0;
    bool isPrimary = false;
};

} // namespace trovell
