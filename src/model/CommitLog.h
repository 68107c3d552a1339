// SPDX-License-Identifier: MIT
//
// Saves whose outcome is known even when the disk fails in the middle of the commit. Main thread
// only.
#pragma once

#include "model/SqliteDatabase.h"

namespace trovell {

/// When a commit reports an error, the transaction may still have reached the file: only the last
/// write to the disk failed. Records that are then rolled back would no longer be what is stored,
/// and the next save would mix the two. So every transaction writes its number, and the number in
/// the file tells afterwards what happened.
class CommitLog {
public:
    explicit CommitLog(SqliteDatabase& database) : m_database(database) {}

    /// Once, before the first transaction.
    [[nodiscard]] Expected<void, StoreError> load();

    /// Does all of `work`, which returns Expected<void, StoreError>, or nothing. Without an error,
    /// the disk holds it. In the rare case that this cannot be found out, every later call fails
    /// too, so that nothing is ever stored on top of an unknown state.
    template <class Work> [[nodiscard]] Expected<void, StoreError> run(Work work)
    {
        if (const auto known = checkNumber(); !known)
            return known;
        const auto committed = m_database.transaction(
            [&] { return work().and_then([&] { return writeNumber(m_number + 1); }); });
        if (!committed)
            return resolve(committed.error());
        m_number += 1;
        return {};
    }

private:
    [[nodiscard]] Expected<void, StoreError> checkNumber();
    [[nodiscard]] Expected<void, StoreError> writeNumber(qint64 number);
    [[nodiscard]] Expected<void, StoreError> resolve(StoreError commitError);

    SqliteDatabase& m_database;
    /// Of the last transaction that is known to be on the disk.
    qint64 m_number = 0;
};

} // namespace trovell
