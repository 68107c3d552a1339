// SPDX-License-Identifier: MIT
//
// The desktop's list of programs that it starts when the user logs in, as far as it concerns this
// program. Main thread only.
#pragma once

#include "support/Expected.h"

#include <QString>

namespace trovell {

enum class LoginItemStatus {
    notRegistered,
    enabled,
    /// Registered, but switched off: the user has to switch it on again.
    requiresApproval,
    /// The desktop does not know this program.
    notFound,
};

class LoginItemSystem {
public:
    virtual ~LoginItemSystem() = default;

    /// Both fail with a sentence for the user, in the desktop's own words. Success does not say
    /// that the status is the wanted one now.
    [[nodiscard]] virtual Expected<void, QString> registerLoginItem() = 0;
    [[nodiscard]] virtual Expected<void, QString> unregisterLoginItem() = 0;

    /// As it is now, whoever changed it.
    [[nodiscard]] virtual LoginItemStatus status() const = 0;
};

} // namespace trovell
