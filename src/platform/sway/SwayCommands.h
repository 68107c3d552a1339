// SPDX-License-Identifier: MIT
//
// The commands that bring windows to their goals under sway or i3. Pure, any thread.
#pragma once

#include "platform/sway/SwayGoal.h"

#include <QByteArrayList>

namespace trovell {

/// The beginning of every command for this window.
[[nodiscard]] QByteArray criteriaOf(const WindowId& window);

/// What to send for all that have not reached their goals. Ends with the workspaces in view and
/// the focus as they were.
[[nodiscard]] QByteArrayList commandsTowards(const QList<SwayGoal>& goals, const SwayTree& tree);

} // namespace trovell
