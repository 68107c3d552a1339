// SPDX-License-Identifier: MIT
//
// The desktops that the program knows. Main thread.
#pragma once

#include "platform/desktop/PlatformAdapters.h"
#include "platform/desktop/SessionFacts.h"
#include "services/ActivationSystem.h"

#include <span>

namespace trovell {

/// `applicationId` names the program's own desktop file, without ".desktop".
struct BackEnd {
    const char* name;
    bool (*fits)(const SessionFacts& session);
    /// Needs no application object, so that a second start ends before it makes one.
    std::unique_ptr<ActivationSystem> (*makeActivation)(const QString& applicationId);
    PlatformAdapters (*create)(const QString& applicationId);
};

/// The first one that fits. There always is one, under which launch items still open but windows
/// are under nobody's control.
[[nodiscard]] const BackEnd& backEndFor(const SessionFacts& session);

} // namespace trovell
