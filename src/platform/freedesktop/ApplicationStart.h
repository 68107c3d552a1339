// SPDX-License-Identifier: MIT
//
// Starts programs so that they are their own: in a session, a scope of the user's service manager
// and a folder of their own, and without what belongs to this program's environment. Main thread;
// waits for nothing.
#pragma once

#include "launch/ResourceSystem.h"
#include "platform/freedesktop/GObjectPointer.h"

#include <gio/gdesktopappinfo.h>

namespace trovell {

using DesktopFile = GObjectPointer<GDesktopAppInfo>;

/// For everything that GIO starts: without this program's own variables.
[[nodiscard]] GObjectPointer<GAppLaunchContext> makeLaunchContext();

/// Opens `uri`, or, if that is null, nothing. False when the program could not be started.
[[nodiscard]] bool startApplication(GDesktopAppInfo* application, const char* uri);

/// The same application with more arguments, in another folder. Null when its file cannot be read.
[[nodiscard]] DesktopFile withStart(DesktopFile application, const ApplicationStart& start);

/// A program that has no desktop file; false when `path` is none.
[[nodiscard]] bool startProgram(const QByteArray& path, const ApplicationStart& wished);

} // namespace trovell
