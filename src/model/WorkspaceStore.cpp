// SPDX-License-Identifier: MIT

#include "model/WorkspaceStore.h"

#include "model/StoreFiles.h"
#include "model/StoreSchema.h"

#include <QFile>

namespace trovell {

namespace {

using Result = Expected<void, StoreError>;

/// Locks before anything is read: there is never a second process to share the file with, and
/// SQLite need not look for foreign changes. Rolled back, because committing would turn an empty
/// file into a database of one page.
Result lock(SqliteDatabase& database)
{
    return database.execute("PRAGMA locking_mode=EXCLUSIVE; BEGIN EXCLUSIVE; ROLLBACK;");
}

/// Under an exclusive lock a commit ends with a synchronised overwrite of the journal's header, so
/// it survives a power loss.
Result configure(SqliteDatabase& database, bool isDurable)
{
    return database.execute(QByteArray("PRAGMA foreign_keys=ON;"
                                       "PRAGMA temp_store=MEMORY; PRAGMA cell_size_check=ON;"
                                       "PRAGMA synchronous=") +
                            (isDurable ? "EXTRA" : "OFF"));
}

/// Finds out now, not at the first save, whether the file and a journal beside it can be written.
/// What it writes is taken back. A rollback journal keeps every acknowledged save in the one file.
Result checkWritable(SqliteDatabase& database)
{
    if (database.isReadOnly())
        return Unexpected<StoreError>(StoreError::readOnly);
    const Expected<qint64, StoreError> version = database.number("PRAGMA user_version");
    if (!version)
        return Unexpected<StoreError>(version.error());
    return database.execute("PRAGMA journal_mode=DELETE;"
                            "BEGIN IMMEDIATE; PRAGMA user_version=" +
                            QByteArray::number(*version) + "; ROLLBACK;");
}

/// An older store stays beside the migrated one until that has been opened once more.
Result keepCopy(SqliteDatabase& database, const StoreFiles& files)
{
    QByteArray path = QFile::encodeName(files.copyPath());
    Result copied =
        files.prepareCopy()
            .and_then(
                [&] { return database.execute("VACUUM INTO '" + path.replace('\'', "''") + '\''); })
            .and_then([&] { return files.synchronizeCopy(); });
    if (!copied)
        files.removeCopy();
    return copied;
}

Expected<std::unique_ptr<SqliteDatabase>, StoreError> openDatabase(const StoreFiles& files,
                                                                   const StoreOptions& options)
{
    auto database = SqliteDatabase::open(files.storePath(), options.vfsName);
    if (!database)
        return database;
    (*database)->readAhead();
    bool isMigrated = false;
    const auto beforeMigration = [&] {
        isMigrated = true;
        return keepCopy(**database, files);
    };
    const Result ready =
        lock(**database)
            .and_then([&] { return configure(**database, options.isDurable); })
            .and_then(
                [&] { return prepareSchema(**database, options.migrationPlan, beforeMigration); })
            .and_then([&] { return checkWritable(**database); });
    if (!ready)
        return Unexpected<StoreError>(ready.error());
    if (!isMigrated)
        files.removeCopy();
    return database;
}

} // namespace

Expected<PreparedStore, StoreError> WorkspaceStore::prepare(const QString& folder,
                                                            const StoreOptions& options)
{
    const StoreFiles files(folder);
    if (const Result prepared = files.prepare(); !prepared)
        return Unexpected<StoreError>(prepared.error());
    auto database = openDatabase(files, options);
    if (!database)
        return Unexpected<StoreError>(database.error());
    files.markAsCreated();
    return PreparedStore{std::move(*database), options.automaticSaveDelay};
}

Expected<std::unique_ptr<WorkspaceStore>, StoreError> WorkspaceStore::open(PreparedStore prepared)
{
    std::unique_ptr<WorkspaceStore> store(new WorkspaceStore(std::move(prepared)));
    if (const Result loaded = store->m_context.load(); !loaded)
        return Unexpected<StoreError>(loaded.error());
    return store;
}

Expected<std::unique_ptr<WorkspaceStore>, StoreError>
WorkspaceStore::open(const QString& folder, const StoreOptions& options)
{
    auto prepared = prepare(folder, options);
    if (!prepared)
        return Unexpected<StoreError>(prepared.error());
    return open(std::move(*prepared));
}

WorkspaceStore::WorkspaceStore(PreparedStore prepared)
    : m_database(std::move(prepared.database)), m_context(*m_database, prepared.automaticSaveDelay)
{
}

WorkspaceStore::~WorkspaceStore()
{
    // Nobody is left to hear of a failure; what was saved before stays.
    static_cast<void>(m_context.save());
}

} // namespace trovell
