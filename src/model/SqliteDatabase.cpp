#include "model/SqliteDatabase.h"

#include "model/RowChecksum.h"
#include "model/SqliteError.h"

#include <QFile>

#include <sqlite3.h>

namespace trovell {

Expected<std::unique_ptr<SqliteDatabase>, StoreError>
SqliteDatabase::open(const QString& path, const QByteArray& vfsName)
{
    sqlite3* handle = nullptr;
    const int code =
        sqlite3_open_v2(QFile::encodeName(path).constData(), &handle,
                        SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE,
                        vfsName.isEmpty() ? nullptr : vfsName.constData());
    std::unique_ptr<SqliteDatabase> database(new SqliteDatabase(handle));
    if (code != SQLITE_OK)
        return Unexpected<StoreError>(storeError(code, handle));
    // A damaged file must not make SQLite run what it contains.
    sqlite3_db_config(handle, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    if (const int registered = registerRowChecksum(handle); registered != SQLITE_OK)
        return Unexpected<StoreError>(storeError(registered, handle));
    return database;
}

SqliteDatabase::~SqliteDatabase()
{
    for (sqlite3_stmt* statement : std::as_const(m_statements))
        sqlite3_finalize(statement);
    sqlite3_close(m_handle);
}

bool SqliteDatabase::isReadOnly() const
{
    return sqlite3_db_readonly(m_handle, "main") != 0;
}

void SqliteDatabase::readAhead()
{
    constexpr int blockSize = 1 << 18;
    sqlite3_file* file = nullptr;
    sqlite3_int64 size = 0;
    // SQLite's own descriptor: closing another one of the file would drop its locks.
    if (sqlite3_file_control(m_handle, "main", SQLITE_FCNTL_FILE_POINTER, &file) != SQLITE_OK ||
        !file->pMethods || file->pMethods->xFileSize(file, &size) != SQLITE_OK)
        return;
    QByteArray block(blockSize, Qt::Uninitialized);
    for (sqlite3_int64 offset = 0; offset + blockSize <= size; offset += blockSize) {
        if (file->pMethods->xRead(file, block.data(), blockSize, offset) != SQLITE_OK)
            return;
    }
}

Expected<void, StoreError> SqliteDatabase::execute(const QByteArray& sql)
{
    const int code = sqlite3_exec(m_handle, sql.constData(), nullptr, nullptr, nullptr);
    if (code != SQLITE_OK)
        return Unexpected<StoreError>(storeError(code, m_handle));
    return {};
}

SqliteStatement SqliteDatabase::statement(const QByteArray& sql)
{
    if (sqlite3_stmt* prepared = m_statements.value(sql))
        return {prepared, SQLITE_OK};
    sqlite3_stmt* prepared = nullptr;
    const int code = sqlite3_prepare_v3(m_handle, sql.constData(), static_cast<int>(sql.size()),
                                        SQLITE_PREPARE_PERSISTENT, &prepared, nullptr);
    if (code == SQLITE_OK)
        m_statements.insert(sql, prepared);
    return {prepared, code};
}

Expected<qint64, StoreError> SqliteDatabase::number(const QByteArray& sql)
{
    SqliteStatement query = statement(sql);
    const Expected<bool, StoreError> hasRow = query.step();
    if (!hasRow)
        return Unexpected<StoreError>(hasRow.error());
    if (!*hasRow)
        return Unexpected<StoreError>(StoreError::damaged);
    qint64 value = 0;
    query.read(value);
    return value;
}

void SqliteDatabase::abandonTransaction()
{
    // After some errors SQLite has rolled back by itself, so this may fail with nothing left to do.
    sqlite3_exec(m_handle, "ROLLBACK", nullptr, nullptr, nullptr);
}

} // namespace trovell
