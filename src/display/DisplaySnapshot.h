// SPDX-License-Identifier: MIT
//
// The attached displays as plain values, and the choice of the attached display that best fits
// a saved one. Any thread.
#pragma once

#include "display/DisplayFingerprint.h"

#include <QList>
#include <QRectF>

#include <optional>

namespace trovell {

/// One screen as the desktop reports it. Rectangles are in screen coordinates: points, origin at
/// the bottom left of the primary display, y upward.
struct Screen {
    QRectF frame;
    /// The part of `frame` that panels and docks leave free.
    QRectF visibleFrame;
    double backingScaleFactor = 1.0;
    QString localizedName;
};

struct DisplaySnapshot {
    /// Screen coordinates, see `Screen`.
    QRectF frame;
    QRectF visibleFrame;
    DisplayFingerprint fingerprint;

    bool operator==(const DisplaySnapshot& other) const;
};

/// One snapshot per screen, in the given order. `mainScreen` is an index into `screens`; without
/// one, no display is main and positions are relative to (0, 0). A pixel size that is not finite
/// or does not fit 64 bits stops the program.
[[nodiscard]] QList<DisplaySnapshot> makeDisplaySnapshots(const QList<Screen>& screens,
                                                          std::optional<qsizetype> mainScreen);

/// How well `candidate` fits `saved`: 0 (nothing in common) to 100 (same name, role, size, scale
/// and position).
[[nodiscard]] double displayMatchScore(const DisplayFingerprint& saved,
                                       const DisplayFingerprint& candidate);

/// The display with the highest score, the earlier one among equals; none only for an empty list.
[[nodiscard]] std::optional<DisplaySnapshot> bestDisplay(const DisplayFingerprint& saved,
                                                         const QList<DisplaySnapshot>& displays);

} // namespace trovell
