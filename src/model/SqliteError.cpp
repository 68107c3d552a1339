// SPDX-License-Identifier: MIT

#include "model/SqliteError.h"

#include <sqlite3.h>

#include <cerrno>

namespace trovell {

namespace {

StoreError systemError(sqlite3* database, StoreError otherwise)
{
    switch (database ? sqlite3_system_errno(database) : 0) {
    case ENOSPC:
    case EDQUOT:
        return StoreError::diskFull;
    case EROFS:
        return StoreError::readOnly;
    default:
        return otherwise;
    }
}

} // namespace

StoreError storeError(int code, sqlite3* database)
{
    switch (code & 0xff) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return StoreError::inUse;
    case SQLITE_NOTADB:
        return StoreError::notAStore;
    case SQLITE_FULL:
        return StoreError::diskFull;
    case SQLITE_READONLY:
        return StoreError::readOnly;
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
        return systemError(database, StoreError::inaccessible);
    case SQLITE_IOERR:
        return systemError(database, StoreError::diskFailure);
    case SQLITE_CONSTRAINT:
        return StoreError::duplicateIdentifier;
    case SQLITE_NOMEM:
        return StoreError::outOfMemory;
    default:
        // What is left is a file whose tables are not those that the statements were written for.
        return StoreError::damaged;
    }
}

} // namespace trovell
