// SPDX-License-Identifier: MIT
//
// The one working copy of the stored workspaces, shared by everything that shows or changes them.
// Main thread only.
#pragma once

#include "model/CommitLog.h"
#include "model/RecordRows.h"
#include "model/StoreError.h"
#include "model/TrovellWorkspace.h"

#include <QObject>
#include <QTimer>

#include <chrono>
#include <memory>
#include <optional>
#include <vector>

namespace trovell {

/// Owns all records of the store. Writes to records stay in memory until a save, which happens on
/// call or by itself a while after the last change. Records that were removed stay usable until
/// the save succeeded and then until the event loop runs.
class StoreContext final : public QObject {
    Q_OBJECT

public:
    /// `database` outlives the context.
    StoreContext(SqliteDatabase& database, std::chrono::milliseconds automaticSaveDelay);
    ~StoreContext() override;

    /// Lists the stored workspaces. Once, before anything else.
    [[nodiscard]] Expected<void, StoreError> load();

    /// By `sortOrder`, those with equal ones in the order in which they were inserted.
    [[nodiscard]] QList<TrovellWorkspace*> workspaces() const;

    /// Takes ownership of a workspace that is in no store; the record stays where it is in memory.
    /// Items and placements join by being appended to their workspace.
    TrovellWorkspace& insert(std::unique_ptr<TrovellWorkspace> workspace);

    /// The record must be in this context. A workspace's items and placements go with it.
    void remove(TrovellWorkspace& workspace);
    void remove(WorkspaceItem& item);
    void remove(WindowPlacement& placement);

    /// Whether anything was written since the last save or rollback.
    [[nodiscard]] bool hasChanges() const { return !m_touched.isEmpty(); }

    /// Makes all changes durable, or none of them: then they stay in memory, to be saved by a later
    /// call or rolled back. Also fails, with the read's error, once items or placements could not
    /// be read, until a rollback: what was edited on an incomplete picture must not be stored.
    [[nodiscard]] Expected<void, StoreError> save();

    /// Makes the records equal to the stored ones again. Removed ones are back, the same objects;
    /// inserted ones are gone. Emits `changed` for every record concerned.
    void rollback();

Q_SIGNALS:
    /// Some record changed, was inserted, removed or rolled back. Emitted once per write, before
    /// the record's own signal, and once per rollback, after them.
    void changed();
    /// The changes are kept; the next change or save tries again.
    void automaticSaveFailed(StoreError error);
    /// Items or placements of a workspace could not be read.
    void readFailed(StoreError error);

private:
    void attach(TrovellWorkspace& workspace);
    void setReaders(TrovellWorkspace& workspace, StoredCounts items, StoredCounts placements);
    template <class Child>
    std::optional<std::vector<typename Child::Values>> readChildren(const QUuid& workspaceId,
                                                                    qint64 expectedCount);
    void noteUnsaved(TrovellWorkspace& workspace);
    void saveAutomatically();
    void acceptChanges();
    /// Those that are in the store no longer, or never were, for the caller to destroy.
    QList<TrovellWorkspace*> takeUnstored(const QList<TrovellWorkspace*>& touched);

    RecordRows m_rows;
    CommitLog m_commits;
    /// In the order of insertion, removed ones included.
    std::vector<std::unique_ptr<TrovellWorkspace>> m_workspaces;
    /// Those with something to save, in the order in which they were first touched.
    QList<TrovellWorkspace*> m_touched;
    std::optional<StoreError> m_readError;
    /// Runs only while there is something to save.
    QTimer m_automaticSave{this};
};

} // namespace trovell
