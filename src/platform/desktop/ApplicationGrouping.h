// SPDX-License-Identifier: MIT
//
// From single windows, and programs known only by a bus name, to the applications that run. Pure,
// any thread.
#pragma once

#include "platform/desktop/ApplicationIdentity.h"
#include "windows/WindowSystem.h"

#include <QList>

#include <optional>

namespace trovell {

/// One window of a desktop and the application that it belongs to.
struct IdentifiedWindow {
    WindowId id;
    /// None for panels, desktops and menus, which show that their application runs and are no
    /// windows of it.
    std::optional<WindowKind> kind;
    qint32 processIdentifier = 0;
    /// The identifier may be empty; such windows belong together by their process.
    ApplicationIdentity application = {};
};

/// One application per identifier, in the order in which their first windows stand in the list.
/// Of their windows only id and kind are known.
[[nodiscard]] QList<RunningApplication> groupWindows(const QList<IdentifiedWindow>& windows);

/// Those of the running applications that were asked for. `background` may be empty.
[[nodiscard]] QList<RunningApplication>
applicationsAskedFor(const DesktopQuestion& question, QList<RunningApplication> withWindows,
                     const BackgroundApplications& background);

} // namespace trovell
