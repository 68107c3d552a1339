// SPDX-License-Identifier: MIT
//
// The back ends for sway and for i3, one of which is a Wayland and the other an X11 session. Main
// thread.
#pragma once

#include "platform/desktop/PlatformAdapters.h"
#include "platform/desktop/SessionFacts.h"

namespace trovell {

[[nodiscard]] bool isSwaySession(const SessionFacts& session);
/// Needs the application object.
[[nodiscard]] PlatformAdapters makeSwayAdapters(const QString& applicationId);

[[nodiscard]] bool isI3Session(const SessionFacts& session);
/// Needs the application object.
[[nodiscard]] PlatformAdapters makeI3Adapters(const QString& applicationId);

} // namespace trovell
