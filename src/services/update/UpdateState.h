// SPDX-License-Identifier: MIT
//
// Where a check for updates stands, for a window to show. A plain value; any thread.
#pragma once

#include "services/update/UpdateError.h"

#include <QString>

#include <optional>

namespace trovell {

/// A newer release, as the feed announces it.
struct AvailableUpdate {
    QString version;
    /// Plain text in lines; to be shown as such, whatever markup is in it.
    QString notes;
    qint64 sizeBytes = 0;

    bool operator==(const AvailableUpdate&) const = default;
};

struct UpdateState {
    enum class Phase {
        idle,
        checking,
        upToDate,    ///< `reason` says why nothing is offered.
        available,   ///< `update` can be downloaded.
        downloading, ///< `update`; `progress` from 0 to 1.
        verifying,   ///< `update` is complete; its signature is being checked.
        ready,       ///< `update` is proven genuine and can be installed; see `isHandedOver`.
        failed,      ///< `error`, and `reason` says it to the user. Nothing was kept.
    };

    Phase phase = Phase::idle;
    AvailableUpdate update = {};
    double progress = 0;
    Message reason = {};
    std::optional<UpdateError> error = {};
    /// The desktop's installer was opened with the update.
    bool isHandedOver = false;

    bool operator==(const UpdateState&) const = default;
};

} // namespace trovell
