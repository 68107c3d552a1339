// SPDX-License-Identifier: MIT

#include "views/detail/LayoutMiniatures.h"

#include "model/WindowPlacement.h"

#include <QHash>

#include <algorithm>

namespace trovell {

QList<DisplayPlacements> groupedByDisplay(const QList<WindowPlacement*>& placements)
{
    QList<DisplayPlacements> groups;
    QHash<DisplayFingerprint, qsizetype> positions;
    for (const WindowPlacement* const placement : placements) {
        const DisplayFingerprint display = placement->savedDisplayFingerprint();
        if (!positions.contains(display)) {
            positions.insert(display, groups.size());
            groups.append({display, {}});
        }
        groups[positions.value(display)].placements.append(placement);
    }
    return groups;
}

double screenAspectRatio(const DisplayFingerprint& display)
{
    return std::max(1.2, display.pointWidth / std::max(display.pointHeight, 1.0));
}

QRectF miniatureFrame(const NormalizedFrame& frame, const QSizeF& picture)
{
    // Normalized frames count from the bottom of the display.
    const QPointF topLeft(frame.x * picture.width(),
                          (1 - frame.y - frame.height) * picture.height());
    return {topLeft, QSizeF(std::max(frame.width * picture.width(), 20.0),
                            std::max(frame.height * picture.height(), 16.0))};
}

} // namespace trovell
