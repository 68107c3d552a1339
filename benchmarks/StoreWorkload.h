// SPDX-License-Identifier: MIT
//
// Stores of any size to measure with, filled as people's stores are.
#pragma once

#include "model/WorkspaceStore.h"

#include <QString>

#include <memory>

namespace trovell::bench {

constexpr int itemsPerWorkspace = 20;
constexpr int placementsPerWorkspace = 20;

/// Changes are saved on call only; without `isDurable` a save does not wait for the disk.
[[nodiscard]] Expected<std::unique_ptr<WorkspaceStore>, StoreError>
openStore(const QString& folder, bool isDurable = true);

/// Creates a store with that many workspaces, of 20 items and 20 placements each.
[[nodiscard]] bool createStore(const QString& folder, int workspaceCount);

/// Creates one in the first form of the schema, with the content of a store.
[[nodiscard]] bool createVersion1Store(const QString& folder, const QString& contentFolder);

[[nodiscard]] std::unique_ptr<WindowPlacement> makeSamplePlacement(int index);

} // namespace trovell::bench
