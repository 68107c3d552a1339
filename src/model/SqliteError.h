// SPDX-License-Identifier: MIT
//
// SQLite's result codes in the store's terms. Any thread.
#pragma once

#include "model/StoreError.h"

struct sqlite3;

namespace trovell {

/// `code` is an extended result code; `database`, which may be null, tells the system's reason.
[[nodiscard]] StoreError storeError(int code, sqlite3* database);

} // namespace trovell
