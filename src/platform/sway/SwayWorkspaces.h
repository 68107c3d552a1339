// SPDX-License-Identifier: MIT
//
// Workspaces as numbered virtual desktops. sway and i3 keep only those that are in use, so numbers
// that mean the same tomorrow are made up: workspace number n is n - 1, whether it exists or not,
// at least up to ten; after them come those that the configuration names without a number, in its
// order, and then other names that are in use, sorted. Pure, any thread.
#pragma once

#include "platform/sway/SwayConfiguration.h"
#include "platform/sway/SwayTree.h"

namespace trovell {

/// The names of all, in their order. One that has a number is named as it is in use, else as the
/// configuration does, else by the number.
[[nodiscard]] QStringList virtualDesktopNames(const SwayTree& tree,
                                              const SwayConfiguration& configuration);

/// What commands have to say to mean the workspace, such as `number "3: mail"`. Characters that
/// would end the text are left out.
[[nodiscard]] QByteArray workspaceArgument(const QString& name);

} // namespace trovell
