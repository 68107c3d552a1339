// SPDX-License-Identifier: MIT
//
// A connection to the store's file. One thread at a time.
#pragma once

#include "model/SqliteStatement.h"
#include "model/StoreError.h"
#include "support/Expected.h"

#include <QByteArray>
#include <QHash>
#include <QString>

#include <memory>

struct sqlite3;
struct sqlite3_stmt;

namespace trovell {

class SqliteDatabase {
public:
    /// The file must exist. `vfsName` names a registered SQLite VFS; empty for the default one.
    [[nodiscard]] static Expected<std::unique_ptr<SqliteDatabase>, StoreError>
    open(const QString& path, const QByteArray& vfsName);
    ~SqliteDatabase();
    Q_DISABLE_COPY_MOVE(SqliteDatabase)

    [[nodiscard]] bool isReadOnly() const;

    /// Asks the system to read the whole file into its cache, before the pages are wanted one by
    /// one. Returns at once; without effect on what is read later, nor on errors.
    void readAhead();

    /// Runs statements separated by semicolons and passes over their rows.
    [[nodiscard]] Expected<void, StoreError> execute(const QByteArray& sql);

    /// The statement is prepared once and used again; one use at a time.
    [[nodiscard]] SqliteStatement statement(const QByteArray& sql);

    /// The first column of the first row; an error when there is none.
    [[nodiscard]] Expected<qint64, StoreError> number(const QByteArray& sql);

    /// Does all of `work` or nothing. `work` returns Expected<void, StoreError>. When this
    /// returns without an error, the disk holds the result.
    template <class Work> [[nodiscard]] Expected<void, StoreError> transaction(Work work)
    {
        Expected<void, StoreError> result = execute("BEGIN IMMEDIATE");
        if (!result)
            return result;
        result = work();
        if (result)
            result = execute("COMMIT");
        if (!result)
            abandonTransaction();
        return result;
    }

private:
    explicit SqliteDatabase(sqlite3* handle) : m_handle(handle) {}

    void abandonTransaction();

    sqlite3* m_handle;
    QHash<QByteArray, sqlite3_stmt*> m_statements;
};

} // namespace trovell
