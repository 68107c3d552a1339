// SPDX-License-Identifier: MIT
//
// Exact comparison of rectangles: the toolkit's own equality is approximate.
#pragma once

#include <QRectF>

namespace trovell {

/// True when all four numbers are equal. Any thread.
[[nodiscard]] constexpr bool isSameRectangle(const QRectF& a, const QRectF& b)
{
    return a.x() == b.x() && a.y() == b.y() && a.width() == b.width() && a.height() == b.height();
}

} // namespace trovell
