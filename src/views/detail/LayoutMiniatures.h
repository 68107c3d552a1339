// SPDX-License-Identifier: MIT
//
// Where the saved windows stand in a small picture of their displays. Pure functions, any thread;
// the records of a grouping belong to the main thread.
#pragma once

#include "display/DisplayFingerprint.h"
#include "display/NormalizedFrame.h"

#include <QList>
#include <QRectF>

namespace trovell {

class WindowPlacement;

/// The saved windows of one display, in their order, those that fill it beneath the others.
struct DisplayPlacements {
    DisplayFingerprint display;
    QList<const WindowPlacement*> placements;
};

/// One group for each fingerprint, in the order in which they first appear.
[[nodiscard]] QList<DisplayPlacements> groupedByDisplay(const QList<WindowPlacement*>& placements);

/// Width over height of the picture of a display: as the display's own, but at least 1.2.
[[nodiscard]] double screenAspectRatio(const DisplayFingerprint& display);

/// Whether it is saved as filling its display.
[[nodiscard]] bool fillsDisplay(const WindowPlacement& placement);

/// Where it is saved. A maximized window fills its display, whatever its frame was.
[[nodiscard]] NormalizedFrame shownFrame(const WindowPlacement& placement);

/// The window in a picture of this size, from the picture's top left. At least 20 × 16 logical
/// pixels whatever the window's size, so it may reach beyond the picture.
[[nodiscard]] QRectF miniatureFrame(const NormalizedFrame& frame, const QSizeF& picture);

} // namespace trovell
