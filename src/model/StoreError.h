// SPDX-License-Identifier: MIT
//
// Why the workspaces could not be opened, read or saved, in words for the user. Any thread.
#pragma once

#include "support/Message.h"

namespace trovell {

enum class StoreError {
    /// The folder or a file in it cannot be opened.
    inaccessible,
    readOnly,
    /// Another process holds the store.
    inUse,
    /// The file is none of ours.
    notAStore,
    /// The file is ours, in a form that this version does not know.
    unknownSchema,
    damaged,
    diskFull,
    /// The disk failed to read or write.
    diskFailure,
    /// A record has the id of another one.
    duplicateIdentifier,
    outOfMemory,
};

/// One or two sentences.
[[nodiscard]] Message description(StoreError error);

/// What a start that ends here says.
[[nodiscard]] Message storeOpeningFailureText(StoreError error);

} // namespace trovell
