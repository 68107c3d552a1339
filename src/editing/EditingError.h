// SPDX-License-Identifier: MIT
//
// Why what was edited or captured could not be saved. A plain value; any thread.
#pragma once

#include "model/StoreError.h"

namespace trovell {

struct EditingError {
    enum class Kind {
        notStored,
        deletedWhileEditing,
        deletedWhileCapturing,
        itemsUnreadable,
        layoutUnreadable,
        shortcutInUse,
        applicationUnavailable,
    };

    Kind kind;
    /// Of `notStored`.
    StoreError storeError = {};
    /// Of `applicationUnavailable`.
    QString applicationName = {};

    bool operator==(const EditingError&) const = default;
};

/// One or two sentences for the user.
[[nodiscard]] Message description(const EditingError& error);

} // namespace trovell
