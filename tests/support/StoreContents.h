// SPDX-License-Identifier: MIT
//
// What a store holds, as plain values that can be compared, and stores to begin with.
#pragma once

#include "model/WorkspaceStore.h"

#include <QList>
#include <QRandomGenerator>

#include <memory>

namespace trovell {

struct WorkspaceContents {
    WorkspaceValues values;
    QList<WorkspaceItemValues> items;
    QList<WindowPlacementValues> placements;

    bool operator==(const WorkspaceContents&) const = default;
};

/// In the order in which the user sees everything.
using StoreContents = QList<WorkspaceContents>;

/// Reads all items and placements.
[[nodiscard]] StoreContents contentsOf(const StoreContext& context);

/// Puts a store there as the program wrote it when it knew version 1 of the schema only.
void copyVersion1Store(const QString& folder);

/// Equal for equal contents, also in another process.
[[nodiscard]] QByteArray digestOf(const StoreContents& contents);

/// Stops the test program when the store cannot be opened.
[[nodiscard]] std::unique_ptr<WorkspaceStore> openStore(const QString& folder,
                                                        const StoreOptions& options = {});

/// Opens the store to look at it and closes it again.
[[nodiscard]] StoreContents storedContents(const QString& folder);

/// With as many items and placements, whose attributes have values of every kind.
[[nodiscard]] std::unique_ptr<TrovellWorkspace> makeWorkspace(const QString& name, qint64 sortOrder,
                                                              int childCount);

/// Edits a store as a user would for years: the same seed makes the same edits.
class StoreEditor {
public:
    explicit StoreEditor(quint32 seed) : m_random(seed) {}

    /// Makes one editing operation, unsaved. The number of workspaces stays small.
    void edit(StoreContext& context);

private:
    void rewrite(StoreContext& context, TrovellWorkspace& workspace);

    QRandomGenerator m_random;
};

} // namespace trovell
