// SPDX-License-Identifier: MIT

#include "views/detail/LayoutMiniatures.h"

#include "model/WindowPlacement.h"
#include "windows/StoredForms.h"

#include <QHash>

#include <algorithm>

namespace trovell {

namespace {

/// Those that a start brings back.
WindowStates savedStates(const WindowPlacement& placement)
{
    return placement.restoresState()
               ? statesFromStored(placement.values().windowStates.value_or(QString()))
               : WindowStates();
}

} // namespace

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
    for (DisplayPlacements& group : groups)
        std::ranges::stable_partition(group.placements, [](const WindowPlacement* placement) {
            return fillsDisplay(*placement);
        });
    return groups;
}

double screenAspectRatio(const DisplayFingerprint& display)
{
    return std::max(1.2, display.pointWidth / std::max(display.pointHeight, 1.0));
}

bool fillsDisplay(const WindowPlacement& placement)
{
    using enum WindowState;
    const WindowStates states = savedStates(placement);
    return states.testFlag(fullScreen) ||
           states.testFlags(maximizedHorizontally | maximizedVertically);
}

NormalizedFrame shownFrame(const WindowPlacement& placement)
{
    using enum WindowState;
    const WindowStates states = savedStates(placement);
    NormalizedFrame frame = placement.savedNormalizedFrame();
    if (states & (fullScreen | maximizedHorizontally)) {
        frame.x = 0;
        frame.width = 1;
    }
    if (states & (fullScreen | maximizedVertically)) {
        frame.y = 0;
        frame.height = 1;
    }
    return frame;
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
