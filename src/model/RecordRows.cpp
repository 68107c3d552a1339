// SPDX-License-Identifier: MIT

#include "model/RecordRows.h"

#include "model/RecordColumns.h"

#include <QByteArrayList>

namespace trovell {

namespace {

template <class Values> QByteArrayList columnNames()
{
    QByteArrayList names;
    forEachColumn<Values>([&](const auto& column) { names.append(column.name); });
    return names;
}

/// "?1", "?2", … for the given number of columns.
QByteArrayList placeholders(qsizetype count)
{
    QByteArrayList texts;
    for (qsizetype index = 1; index <= count; ++index)
        texts.append('?' + QByteArray::number(index));
    return texts;
}

template <class Values> QByteArray selectSql(const QByteArray& condition)
{
    const QByteArray columns = columnNames<Values>().join(',');
    const QByteArray owner = Table<Values>::hasOwner ? ",workspace" : "";
    return "SELECT " + columns + ",checksum IS row_checksum(" + columns + owner + ") FROM " +
           Table<Values>::name + condition + " ORDER BY position";
}

template <class Values> QByteArray insertSql()
{
    QByteArrayList columns = columnNames<Values>();
    if (Table<Values>::hasOwner)
        columns.append("workspace");
    const QByteArray values = placeholders(columns.size()).join(',');
    return "INSERT INTO " + QByteArray(Table<Values>::name) + '(' + columns.join(',') +
           ",checksum) VALUES(" + values + ",row_checksum(" + values + "))";
}

template <class Values> QByteArray updateSql()
{
    const QByteArrayList columns = columnNames<Values>();
    const QByteArrayList values = placeholders(columns.size());
    QByteArray sql = "UPDATE " + QByteArray(Table<Values>::name) + " SET ";
    for (qsizetype index = 1; index < columns.size(); ++index)
        sql += columns[index] + '=' + values[index] + ',';
    const QByteArray owner = Table<Values>::hasOwner ? ",workspace" : "";
    return sql + "checksum=row_checksum(" + values.join(',') + owner + ") WHERE id=?1 RETURNING 1";
}

template <class Values> QByteArray removeSql()
{
    return "DELETE FROM " + QByteArray(Table<Values>::name) + " WHERE id=?1 RETURNING 1";
}

template <class Values> void bindColumns(SqliteStatement& statement, const Values& values)
{
    forEachColumn<Values>([&](const auto& column) { statement.bind(values.*column.attribute); });
}

template <class Values> Expected<std::vector<Values>, StoreError> readRows(SqliteStatement& query)
{
    std::vector<Values> rows;
    for (;;) {
        const Expected<bool, StoreError> hasRow = query.step();
        if (!hasRow)
            return Unexpected<StoreError>(hasRow.error());
        if (!*hasRow)
            return rows;
        Values& values = rows.emplace_back();
        forEachColumn<Values>([&](const auto& column) { query.read(values.*column.attribute); });
        bool isIntact = false;
        query.read(isIntact);
        if (!isIntact)
            return Unexpected<StoreError>(StoreError::damaged);
    }
}

/// For statements that return a row for each row they changed: a row that is missing is damage.
Expected<void, StoreError> changeOneRow(SqliteStatement& change)
{
    const Expected<bool, StoreError> isFound = change.step();
    if (!isFound)
        return Unexpected<StoreError>(isFound.error());
    if (!*isFound)
        return Unexpected<StoreError>(StoreError::damaged);
    return change.run();
}

} // namespace

Expected<std::vector<WorkspaceValues>, StoreError> RecordRows::workspaces()
{
    static const QByteArray sql = selectSql<WorkspaceValues>({});
    SqliteStatement query = m_database.statement(sql);
    return readRows<WorkspaceValues>(query);
}

template <class Child> Expected<QHash<QUuid, StoredCounts>, StoreError> RecordRows::counts()
{
    static const QByteArray sql = "SELECT workspace,count(*),sum(isEnabled) FROM " +
                                  QByteArray(Table<typename Child::Values>::name) +
                                  " GROUP BY workspace";
    SqliteStatement query = m_database.statement(sql);
    QHash<QUuid, StoredCounts> counts;
    for (;;) {
        const Expected<bool, StoreError> hasRow = query.step();
        if (!hasRow)
            return Unexpected<StoreError>(hasRow.error());
        if (!*hasRow)
            return counts;
        QUuid workspaceId;
        query.read(workspaceId);
        StoredCounts& count = counts[workspaceId];
        query.read(count.all);
        query.read(count.enabled);
    }
}

template <class Child>
Expected<std::vector<typename Child::Values>, StoreError>
RecordRows::rowsOf(const QUuid& workspaceId)
{
    static const QByteArray sql = selectSql<typename Child::Values>(" WHERE workspace=?1");
    SqliteStatement query = m_database.statement(sql);
    query.bind(workspaceId);
    return readRows<typename Child::Values>(query);
}

template <class Values>
Expected<void, StoreError> RecordRows::insert(const Values& values, const QUuid& owner)
{
    static const QByteArray sql = insertSql<Values>();
    SqliteStatement insertion = m_database.statement(sql);
    bindColumns(insertion, values);
    if (Table<Values>::hasOwner)
        insertion.bind(owner);
    return insertion.run();
}

template <class Values> Expected<void, StoreError> RecordRows::update(const Values& values)
{
    static const QByteArray sql = updateSql<Values>();
    SqliteStatement update = m_database.statement(sql);
    bindColumns(update, values);
    return changeOneRow(update);
}

template <class Values> Expected<void, StoreError> RecordRows::remove(const Values& values)
{
    static const QByteArray sql = removeSql<Values>();
    SqliteStatement removal = m_database.statement(sql);
    removal.bind(values.id);
    return changeOneRow(removal);
}

template Expected<QHash<QUuid, StoredCounts>, StoreError> RecordRows::counts<WorkspaceItem>();
template Expected<QHash<QUuid, StoredCounts>, StoreError> RecordRows::counts<WindowPlacement>();
template Expected<std::vector<WorkspaceItemValues>, StoreError>
RecordRows::rowsOf<WorkspaceItem>(const QUuid&);
template Expected<std::vector<WindowPlacementValues>, StoreError>
RecordRows::rowsOf<WindowPlacement>(const QUuid&);

template Expected<void, StoreError> RecordRows::insert(const WorkspaceValues&, const QUuid&);
template Expected<void, StoreError> RecordRows::insert(const WorkspaceItemValues&, const QUuid&);
template Expected<void, StoreError> RecordRows::insert(const WindowPlacementValues&, const QUuid&);
template Expected<void, StoreError> RecordRows::update(const WorkspaceValues&);
template Expected<void, StoreError> RecordRows::update(const WorkspaceItemValues&);
template Expected<void, StoreError> RecordRows::update(const WindowPlacementValues&);
template Expected<void, StoreError> RecordRows::remove(const WorkspaceValues&);
template Expected<void, StoreError> RecordRows::remove(const WorkspaceItemValues&);
template Expected<void, StoreError> RecordRows::remove(const WindowPlacementValues&);

} // namespace trovell
