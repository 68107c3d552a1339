// SPDX-License-Identifier: MIT
//
// What all free desktops have in common, for the back ends to start from. Main thread.
#pragma once

#include "platform/desktop/PlatformAdapters.h"
#include "services/ActivationSystem.h"

namespace trovell {

[[nodiscard]] std::unique_ptr<ActivationSystem> makeDBusActivation(const QString& applicationId);

/// Everything but windows and hot keys.
[[nodiscard]] PlatformAdapters makeFreedesktopAdapters(const QString& applicationId);

} // namespace trovell
