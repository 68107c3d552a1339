// SPDX-License-Identifier: MIT
//
// Picks the release to offer. Pure; any thread.
#pragma once

#include "services/update/UpdateItem.h"
#include "support/Message.h"

#include <QList>

namespace trovell {

struct UpdateChoice {
    /// The newest release that this system can run, if it is newer than the program.
    std::optional<UpdateItem> item;
    /// For the user: why there is none.
    Message reason;
};

/// Never picks `programVersion` or an older one. On an unknown system only releases without a
/// minimum system version can run.
[[nodiscard]] UpdateChoice chooseUpdate(const QList<UpdateItem>& items,
                                        const ReleaseVersion& programVersion,
                                        const std::optional<ReleaseVersion>& systemVersion);

} // namespace trovell
