// SPDX-License-Identifier: MIT

#include "windows/WindowPlacementSnapshot.h"

#include "display/Rectangle.h"
#include "model/WindowPlacement.h"

namespace trovell {

bool WindowPlacementSnapshot::operator==(const WindowPlacementSnapshot& other) const
{
    return id == other.id && bundleIdentifier == other.bundleIdentifier &&
           applicationName == other.applicationName && windowTitleHint == other.windowTitleHint &&
           windowRole == other.windowRole && windowSubrole == other.windowSubrole &&
           windowIndexHint == other.windowIndexHint && normalizedFrame == other.normalizedFrame &&
           isSameRectangle(absoluteFrame, other.absoluteFrame) &&
           displayFingerprint == other.displayFingerprint && states == other.states &&
           virtualDesktop == other.virtualDesktop && stackingIndex == other.stackingIndex &&
           opensMissingWindow == other.opensMissingWindow;
}

WindowPlacementSnapshot makeSnapshot(const WindowPlacement& placement)
{
    return {placement.id(),
            placement.bundleIdentifier(),
            placement.applicationName(),
            placement.windowTitleHint(),
            placement.windowRole(),
            placement.windowSubrole(),
            placement.windowIndexHint(),
            placement.savedNormalizedFrame(),
            placement.savedAbsoluteFrame(),
            placement.savedDisplayFingerprint()};
}

} // namespace trovell
