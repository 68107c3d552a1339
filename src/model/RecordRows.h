// SPDX-License-Identifier: MIT
//
// Reads and writes the values of records as rows of the current schema. Main thread only.
#pragma once

#include "model/SqliteDatabase.h"
#include "model/TrovellWorkspace.h"

#include <QHash>

#include <vector>

namespace trovell {

/// Every read checks the checksums of its rows and fails as damaged when one is wrong. Writes
/// belong into a transaction of the database.
class RecordRows {
public:
    explicit RecordRows(SqliteDatabase& database) : m_database(database) {}

    /// All workspaces in the order in which they were inserted.
    [[nodiscard]] Expected<std::vector<WorkspaceValues>, StoreError> workspaces();

    /// How many items (`Child` = WorkspaceItem) or placements each workspace has, by its id.
    template <class Child> [[nodiscard]] Expected<QHash<QUuid, StoredCounts>, StoreError> counts();

    /// The items or placements of a workspace in the order in which they were inserted.
    template <class Child>
    [[nodiscard]] Expected<std::vector<typename Child::Values>, StoreError>
    rowsOf(const QUuid& workspaceId);

    /// `owner` is the workspace of an item or placement; not used for a workspace.
    template <class Values>
    [[nodiscard]] Expected<void, StoreError> insert(const Values& values, const QUuid& owner);
    template <class Values> [[nodiscard]] Expected<void, StoreError> update(const Values& values);
    /// Items and placements go with their workspace.
    template <class Values> [[nodiscard]] Expected<void, StoreError> remove(const Values& values);

private:
    SqliteDatabase& m_database;
};

} // namespace trovell
