// SPDX-License-Identifier: MIT
//
// The checksum that every stored row carries. SQLite's own check finds a damaged structure but not
// a flipped bit in the middle of a text; this does. Any thread.
#pragma once

struct sqlite3;

namespace trovell {

/// Adds the SQL function `row_checksum(column, …)` to the connection: 64 bits over the types,
/// sizes and bytes of its arguments. Any single changed byte changes it. Returns an SQLite result
/// code.
[[nodiscard]] int registerRowChecksum(sqlite3* database);

} // namespace trovell
