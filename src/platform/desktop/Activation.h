// SPDX-License-Identifier: MIT
//
// Which windows come forward when applications are activated. Pure, any thread.
#pragma once

#include "windows/DesktopWindow.h"

#include <QList>
#include <QStringList>

#include <optional>

namespace trovell {

/// One window of each application, in the order in which to raise them: that of the first
/// identifier is the last one and gets the focus. Windows of another virtual desktop stay where
/// they are, so that nobody is torn away from the one in view, unless all of them lie together on
/// another one.
[[nodiscard]] QList<WindowId> windowsToActivate(const QStringList& identifiers,
                                                const QList<RunningApplication>& applications,
                                                const std::optional<int>& desktopInView);

} // namespace trovell
