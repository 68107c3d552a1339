// SPDX-License-Identifier: MIT

#include "windows/CapturedApplication.h"

#include "display/NormalizedFrame.h"
#include "display/Rectangle.h"
#include "model/WindowPlacement.h"

namespace trovell {

bool CapturedWindow::operator==(const CapturedWindow& other) const
{
    return id == other.id && bundleIdentifier == other.bundleIdentifier &&
           applicationName == other.applicationName && windowTitle == other.windowTitle &&
           role == other.role && subrole == other.subrole && windowIndex == other.windowIndex &&
           isSameRectangle(frame, other.frame) && display == other.display &&
           isIncluded == other.isIncluded;
}

std::unique_ptr<WindowPlacement> makePlacement(const CapturedWindow& window)
{
    return std::make_unique<WindowPlacement>(
        window.bundleIdentifier, window.applicationName, window.windowTitle, window.role,
        window.subrole, window.windowIndex,
        normalizeFrame(window.frame, window.display.visibleFrame), window.frame,
        window.display.fingerprint, true);
}

} // namespace trovell
