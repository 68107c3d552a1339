// SPDX-License-Identifier: MIT

#include "editing/EditablePlacement.h"

#include "model/WindowPlacement.h"
#include "windows/StoredForms.h"

namespace trovell {

namespace {

std::optional<SavedDesktop> rememberedDesktop(const WindowPlacementValues& values)
{
    if (!values.virtualDesktopIndex && !values.isOnAllDesktops)
        return {};
    return SavedDesktop{.index = static_cast<int>(values.virtualDesktopIndex.value_or(0)),
                        .name = values.virtualDesktopName.value_or(QString()),
                        .isAll = values.isOnAllDesktops};
}

} // namespace

EditablePlacement editablePlacement(const WindowPlacement& placement)
{
    const WindowPlacementValues& values = placement.values();
    return {.id = values.id,
            .bundleIdentifier = values.bundleIdentifier,
            .applicationName = values.applicationName,
            .title = values.windowTitleHint,
            .desktop = rememberedDesktop(values),
            .states = statesFromStored(values.windowStates.value_or(QString())),
            .restoresDesktop = values.restoresDesktop,
            .restoresState = values.restoresState,
            .opensMissingWindow = values.opensMissingWindow};
}

void writeSwitches(const EditablePlacement& edited, WindowPlacement& placement)
{
    placement.setRestoresDesktop(edited.restoresDesktop);
    placement.setRestoresState(edited.restoresState);
    placement.setOpensMissingWindow(edited.opensMissingWindow);
}

} // namespace trovell
