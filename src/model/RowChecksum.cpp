// SPDX-License-Identifier: MIT

#include "model/RowChecksum.h"

#include <QtEndian>

#include <sqlite3.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <span>

namespace trovell {

namespace {

/// In the manner of FNV-1a, eight bytes at a time: each step is a bijection of the state and of the
/// word, so two inputs that differ in one word never meet again.
class Checksum {
public:
    void add(std::uint64_t word)
    {
        m_state = (m_state ^ word) * 0x9e3779b97f4a7c15; // odd
        // A product carries upwards only: this brings the upper bits back down.
        m_state ^= m_state >> 32;
    }

    void addBytes(std::span<const unsigned char> bytes)
    {
        add(bytes.size());
        while (!bytes.empty()) {
            const std::size_t size = std::min(bytes.size(), sizeof(std::uint64_t));
            std::uint64_t word = 0;
            std::memcpy(&word, bytes.data(), size);
            add(qFromLittleEndian(word));
            bytes = bytes.subspan(size);
        }
    }

    [[nodiscard]] sqlite3_int64 value() const { return static_cast<sqlite3_int64>(m_state); }

private:
    std::uint64_t m_state = 0xcbf29ce484222325;
};

void addBytes(Checksum& checksum, sqlite3_value* value)
{
    const auto* bytes = static_cast<const unsigned char*>(sqlite3_value_blob(value));
    const auto size = static_cast<std::size_t>(sqlite3_value_bytes(value));
    checksum.addBytes({bytes, size});
}

void addValue(Checksum& checksum, sqlite3_value* value)
{
    const int type = sqlite3_value_type(value);
    checksum.add(static_cast<std::uint64_t>(type));
    switch (type) {
    case SQLITE_INTEGER:
        checksum.add(static_cast<std::uint64_t>(sqlite3_value_int64(value)));
        break;
    case SQLITE_FLOAT:
        // Adding zero turns the negative zero into the positive one, as storing it does.
        checksum.add(std::bit_cast<std::uint64_t>(sqlite3_value_double(value) + 0.0));
        break;
    case SQLITE_TEXT:
    case SQLITE_BLOB:
        addBytes(checksum, value);
        break;
    default:
        break;
    }
}

void rowChecksum(sqlite3_context* context, int count, sqlite3_value** values)
{
    Checksum checksum;
    for (sqlite3_value* value : std::span(values, static_cast<std::size_t>(count)))
        addValue(checksum, value);
    sqlite3_result_int64(context, checksum.value());
}

} // namespace

int registerRowChecksum(sqlite3* database)
{
    return sqlite3_create_function_v2(database, "row_checksum", -1,
                                      SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_DIRECTONLY,
                                      nullptr, &rowChecksum, nullptr, nullptr, nullptr);
}

} // namespace trovell
