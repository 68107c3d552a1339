// SPDX-License-Identifier: MIT
//
// The back end for a desktop that lends neither windows nor keys. Main thread.
#pragma once

#include "platform/desktop/PlatformAdapters.h"
#include "platform/desktop/SessionFacts.h"

namespace trovell {

[[nodiscard]] inline bool isAnySession(const SessionFacts&)
{
    return true;
}
[[nodiscard]] PlatformAdapters makeNullAdapters(const QString& applicationId);

} // namespace trovell
