// SPDX-License-Identifier: MIT
//
// The checksum that every stored row carries. SQLite's own check finds a damaged structure but not
// a flipped bit in the middle of a text; this does. Any thread.
#pragma once

struct sqlite3;

namespace trovell {

/// Adds the SQL function `row_checksum(column, …)` to the connection: 64 bits (XXH3)
/// over the types and bytes of its arguments. Returns an SQLite result code.
[[nodiscard]] int registerRowChecksum(sqlite3* database);

} // namespace trovell
