// SPDX-License-Identifier: MIT
//
// The back end for an X11 session, whatever its window manager. Main thread.
#pragma once

#include "platform/desktop/PlatformAdapters.h"
#include "platform/desktop/SessionFacts.h"

namespace trovell {

[[nodiscard]] inline bool isX11Session(const SessionFacts& session)
{
    return !session.isWayland() && !session.x11Display.isEmpty();
}
/// Needs the application object.
[[nodiscard]] PlatformAdapters makeX11Adapters(const QString& applicationId);

} // namespace trovell
