// SPDX-License-Identifier: MIT
//
// Captured windows beside the saved ones that a workspace has already. Main thread.
#pragma once

#include "windows/CapturedApplication.h"

#include <QHash>

namespace trovell {

/// What each captured window was saved as, by the window's id; those that are new are absent. Goes
/// by the rules of a restore, and pairs what these leave over in its order, since titles change.
[[nodiscard]] QHash<QUuid, WindowPlacement*>
formerPlacements(const QList<WindowPlacement*>& placements,
                 const QList<CapturedApplication>& applications);

/// Those of `placements` that no captured window was saved as: the capture could not see their
/// windows, or they are closed.
[[nodiscard]] QList<WindowPlacement*>
unseenPlacements(const QList<WindowPlacement*>& placements,
                 const QList<CapturedApplication>& applications);

} // namespace trovell
