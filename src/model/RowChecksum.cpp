#include "model/RowChecksum.h"

#include <sqlite3.h>

#include <bit>
#include <cstdint>
#include <span>

namespace trovell {

namespace {

/// FNV-1a: each step is a bijection of the state, so two inputs that differ in one byte never meet
/// again.
class Checksum {
public:
    void add(std::span<const unsigned char> bytes)
    {
        for (const unsigned char byte : bytes)
            m_state = (m_state ^ byte) * 0x100000001b3;
    }

    void addNumber(std::uint64_t number)
    {
        for (int shift = 0; shift < 64; shift += 8) {
            const auto byte = static_cast<unsigned char>(number >> shift);
            add({&byte, 1});
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
    checksum.addNumber(size);
    checksum.add({bytes, size});
}

void addValue(Checksum& checksum, sqlite3_value* value)
{
    const int type = sqlite3_value_type(value);
    checksum.addNumber(static_cast<std::uint64_t>(type));
    switch (type) {
    case SQLITE_INTEGER:
        checksum.addNumber(static_cast<std::uint64_t>(sqlite3_value_int64(value)));
        break;
    case SQLITE_FLOAT:
        // Adding zero turns the negative zero into the positive one, as storing it does.
        checksum.addNumber(std::bit_cast<std::uint64_t>(sqlite3_value_double(value) + 0.0));
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
