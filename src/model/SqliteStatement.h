// SPDX-License-Identifier: MIT
//
// One use of a prepared statement: bind, step, read. Main thread only.
#pragma once

#include "model/StoreError.h"
#include "support/Expected.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QUuid>

#include <optional>

struct sqlite3_stmt;

namespace trovell {

/// Borrows the statement from its database and resets it at the end. Errors of preparing and
/// binding are kept and come out of the first step.
class SqliteStatement {
public:
    /// `statement` is null when preparing failed with the SQLite result `code`.
    SqliteStatement(sqlite3_stmt* statement, int code);
    SqliteStatement(SqliteStatement&& other) noexcept;
    ~SqliteStatement();
    Q_DISABLE_COPY(SqliteStatement)
    SqliteStatement& operator=(SqliteStatement&&) = delete;

    /// Gives the next parameter its value. An invalid date and NaN are stored as NULL.
    void bind(const QUuid& value);
    void bind(const QString& value);
    void bind(const QByteArray& value);
    void bind(const QDateTime& value);
    void bind(qint64 value);
    void bind(double value);
    void bind(bool value);
    template <class T> void bind(const std::optional<T>& value)
    {
        if (value)
            bind(*value);
        else
            bindNull();
    }

    /// True when there is a row to read, false at the end.
    [[nodiscard]] Expected<bool, StoreError> step();
    /// Steps to the end.
    [[nodiscard]] Expected<void, StoreError> run();

    /// Takes the next column of the current row.
    void read(QUuid& value);
    void read(QString& value);
    void read(QByteArray& value);
    void read(QDateTime& value);
    void read(qint64& value);
    void read(double& value);
    void read(bool& value);
    template <class T> void read(std::optional<T>& value)
    {
        if (isNull())
            m_column += 1;
        else
            read(value.emplace());
    }

private:
    void bindNull();
    [[nodiscard]] bool isNull() const;
    void note(int code);

    sqlite3_stmt* m_statement;
    int m_code;
    int m_parameter = 0;
    int m_column = 0;
};

} // namespace trovell
