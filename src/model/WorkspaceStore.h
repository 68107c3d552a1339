// SPDX-License-Identifier: MIT
//
// The store of all workspaces: one SQLite file in a folder of its own, opened once and held
// exclusively until the end. Main thread only, but for the preparation.
#pragma once

#include "model/SqliteDatabase.h"
#include "model/StoreContext.h"
#include "model/TrovellMigrationPlan.h"

#include <chrono>
#include <memory>

namespace trovell {

struct StoreOptions {
    /// A registered SQLite VFS to do all access to the file through; empty for the system's.
    QByteArray vfsName = {};
    /// Whether a save waits until the disk holds it. Only measurements switch this off.
    bool isDurable = true;
    /// Changes are saved by themselves when none has followed for this long.
    std::chrono::milliseconds automaticSaveDelay = std::chrono::seconds(1);
    MigrationPlan migrationPlan = TrovellMigrationPlan::plan();
};

/// A store's file, locked and verified from the first page to the last.
struct PreparedStore {
    std::unique_ptr<SqliteDatabase> database;
    std::chrono::milliseconds automaticSaveDelay;
};

class WorkspaceStore {
public:
    /// The slow part of opening, which reads all there is. Any thread, also before there is an
    /// application. Creates folder and file if they do not exist; a store that cannot be opened is
    /// left as it is.
    [[nodiscard]] static Expected<PreparedStore, StoreError>
    prepare(const QString& folder, const StoreOptions& options = {});

    [[nodiscard]] static Expected<std::unique_ptr<WorkspaceStore>, StoreError>
    open(PreparedStore prepared);

    /// Both in one.
    [[nodiscard]] static Expected<std::unique_ptr<WorkspaceStore>, StoreError>
    open(const QString& folder, const StoreOptions& options = {});

    /// Saves what is unsaved, as far as possible, and closes. Destroys all records.
    ~WorkspaceStore();
    Q_DISABLE_COPY_MOVE(WorkspaceStore)

    [[nodiscard]] StoreContext& mainContext() { return m_context; }

private:
    explicit WorkspaceStore(PreparedStore prepared);

    std::unique_ptr<SqliteDatabase> m_database;
    StoreContext m_context;
};

} // namespace trovell
