// SPDX-License-Identifier: MIT

#include "model/CommitLog.h"

namespace trovell {

namespace {

const char* const numberSql = "SELECT number FROM StoreCommit";

} // namespace

Expected<void, StoreError> CommitLog::load()
{
    const Expected<qint64, StoreError> number = m_database.number(numberSql);
    if (!number)
        return Unexpected<StoreError>(number.error());
    m_number = *number;
    return {};
}

Expected<void, StoreError> CommitLog::checkNumber()
{
    const Expected<qint64, StoreError> stored = m_database.number(numberSql);
    if (!stored)
        return Unexpected<StoreError>(stored.error());
    if (*stored != m_number)
        return Unexpected<StoreError>(StoreError::diskFailure);
    return {};
}

Expected<void, StoreError> CommitLog::writeNumber(qint64 number)
{
    SqliteStatement update = m_database.statement("UPDATE StoreCommit SET number=?1");
    update.bind(number);
    return update.run();
}

Expected<void, StoreError> CommitLog::resolve(StoreError commitError)
{
    const Expected<qint64, StoreError> stored = m_database.number(numberSql);
    if (!stored || *stored != m_number + 1)
        return Unexpected<StoreError>(commitError);
    // It is in the file but perhaps not on the disk. A further commit that succeeds takes it along.
    const auto confirmed = m_database.transaction([this] { return writeNumber(m_number + 2); });
    if (!confirmed)
        return Unexpected<StoreError>(commitError);
    m_number += 2;
    return {};
}

} // namespace trovell
