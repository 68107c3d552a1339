// SPDX-License-Identifier: MIT
//
// A saved window while it is being edited: what it remembers, and which of that is to come back.
// Plain values.
#pragma once

#include "windows/WindowPlacementSnapshot.h"

namespace trovell {

class WindowPlacement;

struct EditablePlacement {
    QUuid id;
    QString bundleIdentifier = {};
    QString applicationName = {};
    std::optional<QString> title = {};
    /// None where it was not remembered.
    std::optional<SavedDesktop> desktop = {};
    /// The same where there are none.
    WindowStates states = {};
    bool restoresDesktop = true;
    bool restoresState = true;
    bool opensMissingWindow = false;

    bool operator==(const EditablePlacement&) const = default;
};

/// As it is stored. Main thread.
[[nodiscard]] EditablePlacement editablePlacement(const WindowPlacement& placement);

/// What was switched, to the record. Main thread.
void writeSwitches(const EditablePlacement& edited, WindowPlacement& placement);

} // namespace trovell
