// SPDX-License-Identifier: MIT

#include "model/SqliteDatabase.h"

#include "model/RowChecksum.h"
#include "model/SqliteError.h"

#include <QFile>

#include <algorithm>
#include <sqlite3.h>
#include <sys/mman.h>

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
    // What the system reads ahead at one request.
    constexpr int step = 1 << 17;
    sqlite3_file* file = nullptr;
    sqlite3_int64 size = 0;
    if (sqlite3_file_control(m_handle, "main", SQLITE_FCNTL_FILE_POINTER, &file) != SQLITE_OK ||
        !file->pMethods || file->pMethods->iVersion < 3 ||
        file->pMethods->xFileSize(file, &size) != SQLITE_OK)
        return;
    // Through SQLite's own descriptor, since closing another one of the file would drop its locks.
    // Mapped for the request only: touching a page that cannot be read would end the process. A
    // plain read in large blocks would leave large pages in the cache, which cost every later
    // save.
    const int length = static_cast<int>(std::min<sqlite3_int64>(size, 1 << 30));
    sqlite3_int64 mapped = length;
    sqlite3_file_control(m_handle, "main", SQLITE_FCNTL_MMAP_SIZE, &mapped);
    void* content = nullptr;
    if (file->pMethods->xFetch(file, 0, length, &content) == SQLITE_OK && content) {
        for (int offset = 0; offset < length; offset += step)
            madvise(static_cast<char*>(content) + offset,
                    static_cast<std::size_t>(std::min(step, length - offset)), MADV_WILLNEED);
        file->pMethods->xUnfetch(file, 0, content);
    }
    mapped = 0;
    sqlite3_file_control(m_handle, "main", SQLITE_FCNTL_MMAP_SIZE, &mapped);
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
