// SPDX-License-Identifier: MIT

#include "windows/WindowPlacementSnapshot.h"

#include "display/Rectangle.h"
#include "model/WindowPlacement.h"
#include "windows/StoredForms.h"

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
    const WindowPlacementValues& values = placement.values();
    WindowPlacementSnapshot snapshot{placement.id(),
                                     placement.bundleIdentifier(),
                                     placement.applicationName(),
                                     placement.windowTitleHint(),
                                     placement.windowRole(),
                                     placement.windowSubrole(),
                                     placement.windowIndexHint(),
                                     placement.savedNormalizedFrame(),
                                     placement.savedAbsoluteFrame(),
                                     placement.savedDisplayFingerprint()};
    if (values.windowStates && values.restoresState)
        snapshot.states = statesFromStored(*values.windowStates);
    if (values.restoresDesktop && (values.virtualDesktopIndex || values.isOnAllDesktops))
        snapshot.virtualDesktop =
            SavedDesktop{int(values.virtualDesktopIndex.value_or(0)),
                         values.virtualDesktopName.value_or(QString()), values.isOnAllDesktops};
    snapshot.stackingIndex = values.stackingIndex;
    snapshot.opensMissingWindow = values.opensMissingWindow;
    return snapshot;
}

} // namespace trovell
