// SPDX-License-Identifier: MIT

#include "model/RowChecksum.h"

#include <QtEndian>

#include <sqlite3.h>

#include <xxhash.h>

#include <bit>
#include <span>

namespace trovell {

namespace {

quint64 hashOfWord(quint64 word, quint64 seed)
{
    const quint64 stored = qToLittleEndian(word);
    return XXH3_64bits_withSeed(&stored, sizeof stored, seed);
}

quint64 hashOfValue(sqlite3_value* value, quint64 seed)
{
    switch (sqlite3_value_type(value)) {
    case SQLITE_INTEGER:
        return hashOfWord(static_cast<quint64>(sqlite3_value_int64(value)), seed);
    case SQLITE_FLOAT:
        // Adding zero turns the negative zero into the positive one, as storing it does.
        return hashOfWord(std::bit_cast<quint64>(sqlite3_value_double(value) + 0.0), seed);
    default: {
        const void* bytes = sqlite3_value_blob(value); // none for null
        return XXH3_64bits_withSeed(bytes, static_cast<size_t>(sqlite3_value_bytes(value)), seed);
    }
    }
}

void rowChecksum(sqlite3_context* context, int count, sqlite3_value** values)
{
    // Each hash is the seed of the next, together with the type of what it covers.
    quint64 hash = 0;
    for (sqlite3_value* value : std::span(values, static_cast<size_t>(count)))
        hash = hashOfValue(value, hash + static_cast<quint64>(sqlite3_value_type(value)));
    sqlite3_result_int64(context, static_cast<sqlite3_int64>(hash));
}

} // namespace

int registerRowChecksum(sqlite3* database)
{
    return sqlite3_create_function_v2(database, "row_checksum", -1,
                                      SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_DIRECTONLY,
                                      nullptr, &rowChecksum, nullptr, nullptr, nullptr);
}

} // namespace trovell
