// SPDX-License-Identifier: MIT

#include "model/SqliteStatement.h"

#include "model/SqliteError.h"

#include <sqlite3.h>

#include <limits>
#include <utility>

namespace trovell {

SqliteStatement::SqliteStatement(sqlite3_stmt* statement, int code)
    : m_statement(statement), m_code(code)
{
}

SqliteStatement::SqliteStatement(SqliteStatement&& other) noexcept
    : m_statement(std::exchange(other.m_statement, nullptr)), m_code(other.m_code),
      m_parameter(other.m_parameter), m_column(other.m_column)
{
}

SqliteStatement::~SqliteStatement()
{
    sqlite3_reset(m_statement);
    sqlite3_clear_bindings(m_statement);
}

void SqliteStatement::bind(const QUuid& value)
{
    bind(value.toRfc4122());
}

void SqliteStatement::bind(const QString& value)
{
    const QByteArray text = value.toUtf8();
    note(sqlite3_bind_text64(m_statement, ++m_parameter, text.constData(),
                             static_cast<sqlite3_uint64>(text.size()), SQLITE_TRANSIENT,
                             SQLITE_UTF8));
}

void SqliteStatement::bind(const QByteArray& value)
{
    note(sqlite3_bind_blob64(m_statement, ++m_parameter, value.isEmpty() ? "" : value.constData(),
                             static_cast<sqlite3_uint64>(value.size()), SQLITE_TRANSIENT));
}

void SqliteStatement::bind(const QDateTime& value)
{
    if (value.isValid())
        bind(value.toMSecsSinceEpoch());
    else
        bindNull();
}

void SqliteStatement::bind(qint64 value)
{
    note(sqlite3_bind_int64(m_statement, ++m_parameter, value));
}

void SqliteStatement::bind(double value)
{
    note(sqlite3_bind_double(m_statement, ++m_parameter, value));
}

void SqliteStatement::bind(bool value)
{
    bind(static_cast<qint64>(value));
}

Expected<bool, StoreError> SqliteStatement::step()
{
    m_column = 0;
    if (m_code == SQLITE_OK || m_code == SQLITE_ROW)
        m_code = sqlite3_step(m_statement);
    if (m_code == SQLITE_ROW)
        return true;
    if (m_code == SQLITE_DONE)
        return false;
    return Unexpected<StoreError>(storeError(m_code, sqlite3_db_handle(m_statement)));
}

Expected<void, StoreError> SqliteStatement::run()
{
    for (;;) {
        const Expected<bool, StoreError> hasRow = step();
        if (!hasRow)
            return Unexpected<StoreError>(hasRow.error());
        if (!*hasRow)
            return {};
    }
}

void SqliteStatement::read(QUuid& value)
{
    QByteArray bytes;
    read(bytes);
    value = QUuid::fromRfc4122(bytes);
}

void SqliteStatement::read(QString& value)
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(m_statement, m_column));
    value = QString::fromUtf8(text, sqlite3_column_bytes(m_statement, m_column));
    m_column += 1;
}

void SqliteStatement::read(QByteArray& value)
{
    const auto* bytes = static_cast<const char*>(sqlite3_column_blob(m_statement, m_column));
    value = QByteArray(bytes, sqlite3_column_bytes(m_statement, m_column));
    m_column += 1;
}

void SqliteStatement::read(QDateTime& value)
{
    if (isNull()) {
        m_column += 1;
        value = {};
        return;
    }
    qint64 milliseconds = 0;
    read(milliseconds);
    value = QDateTime::fromMSecsSinceEpoch(milliseconds).toUTC();
}

void SqliteStatement::read(qint64& value)
{
    value = sqlite3_column_int64(m_statement, m_column++);
}

void SqliteStatement::read(double& value)
{
    const bool isNumber = !isNull();
    value = sqlite3_column_double(m_statement, m_column++);
    if (!isNumber)
        value = std::numeric_limits<double>::quiet_NaN();
}

void SqliteStatement::read(bool& value)
{
    value = sqlite3_column_int64(m_statement, m_column++) != 0;
}

void SqliteStatement::bindNull()
{
    note(sqlite3_bind_null(m_statement, ++m_parameter));
}

bool SqliteStatement::isNull() const
{
    return sqlite3_column_type(m_statement, m_column) == SQLITE_NULL;
}

void SqliteStatement::note(int code)
{
    if (m_code == SQLITE_OK)
        m_code = code;
}

} // namespace trovell
