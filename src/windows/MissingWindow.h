// SPDX-License-Identifier: MIT
//
// What to tell people about a saved window that was not found: what is the case, and what they can
// do. Pure, any thread.
#pragma once

#include "support/Message.h"
#include "windows/WindowPairing.h"

namespace trovell {

/// Whether all that is left of an application's windows is put away, and was so before the launch:
/// no other one will come.
[[nodiscard]] bool areAllPutAway(const QList<DesktopWindow>& windows,
                                 const ApplicationWindows& known);

/// About an application that runs with these windows.
[[nodiscard]] Message adviceForMissingWindow(const QString& applicationName,
                                             const QList<DesktopWindow>& windows,
                                             const ApplicationWindows& known);

/// About one that does not run.
[[nodiscard]] Message adviceForMissingApplication(const QString& applicationName);

} // namespace trovell
