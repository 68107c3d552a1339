// SPDX-License-Identifier: MIT
//
// Window frames relative to the usable area of a display. Pure arithmetic on doubles, any thread.
//
// Screen coordinates: points, origin at the bottom left of the primary display, y upward.
#pragma once

#include "display/DisplaySnapshot.h"

#include <QList>
#include <QRectF>

#include <optional>

namespace trovell {

/// A frame as fractions of a display's visible frame, counted from its bottom left. Not clamped:
/// a window that hangs over the edge has values below 0 or above 1.
struct NormalizedFrame {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    bool operator==(const NormalizedFrame&) const = default;
};

/// (0, 0, 1, 1) when `reference` has no area.
[[nodiscard]] NormalizedFrame normalizeFrame(const QRectF& frame, const QRectF& reference);

[[nodiscard]] QRectF denormalizeFrame(const NormalizedFrame& frame, const QRectF& reference);

/// Cuts the frame to the reference's size, raises it to the minimum size as far as the reference
/// allows, and then moves it inside. Unchanged when `reference` has no area.
[[nodiscard]] QRectF clampedFrame(const QRectF& frame, const QRectF& reference, double minimumWidth,
                                  double minimumHeight);

/// The display that holds the largest part of the window, by its whole frame; the first one for a
/// window that lies on none. `frame` is in screen coordinates. None only for an empty list.
[[nodiscard]] std::optional<DisplaySnapshot>
displayContaining(const QRectF& frame, const QList<DisplaySnapshot>& displays);

} // namespace trovell
