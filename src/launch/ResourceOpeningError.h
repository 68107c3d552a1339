// SPDX-License-Identifier: MIT
//
// Why a launch item could not be opened. A plain value; any thread.
#pragma once

#include "support/Message.h"

namespace trovell {

struct ResourceOpeningError {
    enum class Kind {
        missing,    ///< `subject` is the item's stored URL text.
        cannotOpen, ///< `subject` is the item's display name.
    };

    Kind kind = Kind::missing;
    QString subject;

    bool operator==(const ResourceOpeningError&) const = default;
};

[[nodiscard]] Message description(const ResourceOpeningError& error);

} // namespace trovell
