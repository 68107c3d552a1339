// SPDX-License-Identifier: MIT
//
// Where the program keeps what it keeps, by the XDG Base Directory Specification. Any thread.
#pragma once

#include <QString>

namespace trovell {

/// `$XDG_DATA_HOME/trovell`: the workspaces.
[[nodiscard]] QString dataFolder();
/// `$XDG_CONFIG_HOME/trovell/preferences.json`.
[[nodiscard]] QString preferencesFile();

} // namespace trovell
