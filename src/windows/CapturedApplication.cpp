// SPDX-License-Identifier: MIT

#include "windows/CapturedApplication.h"

#include "display/NormalizedFrame.h"
#include "display/Rectangle.h"
#include "model/WindowPlacement.h"
#include "windows/StoredForms.h"

namespace trovell {

bool CapturedWindow::operator==(const CapturedWindow& other) const
{
    return id == other.id && bundleIdentifier == other.bundleIdentifier &&
           applicationName == other.applicationName && windowTitle == other.windowTitle &&
           role == other.role && subrole == other.subrole && windowIndex == other.windowIndex &&
           isSameRectangle(frame, other.frame) && display == other.display &&
           states == other.states && virtualDesktop == other.virtualDesktop &&
           stackingIndex == other.stackingIndex && hasSiblings == other.hasSiblings &&
           isIncluded == other.isIncluded;
}

std::unique_ptr<WindowPlacement> makePlacement(const CapturedWindow& window)
{
    const WindowPlacement place(window.bundleIdentifier, window.applicationName, window.windowTitle,
                                window.role, window.subrole, window.windowIndex,
                                normalizeFrame(window.frame, window.display.visibleFrame),
                                window.frame, window.display.fingerprint, true);
    WindowPlacementValues values = place.values();
    if (window.virtualDesktop && !window.virtualDesktop->isAll) {
        values.virtualDesktopIndex = window.virtualDesktop->index;
        values.virtualDesktopName = window.virtualDesktop->name;
    }
    values.isOnAllDesktops = window.virtualDesktop && window.virtualDesktop->isAll;
    values.windowStates = storedStates(window.states);
    values.stackingIndex = window.stackingIndex;
    values.opensMissingWindow = window.hasSiblings;
    return std::make_unique<WindowPlacement>(std::move(values));
}

} // namespace trovell
