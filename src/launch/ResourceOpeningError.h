// SPDX-License-Identifier: MIT
//
// Why a launch item could not be opened. A plain value; any thread.
#pragma once

#include <QString>

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

/// The text shown to the user, built from the key of `Kind` around the subject.
[[nodiscard]] QString description(const ResourceOpeningError& error);

} // namespace trovell
