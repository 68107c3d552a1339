// SPDX-License-Identifier: MIT
//
// Brings an open database to the current schema: creates the tables of a new store, checks an
// existing one for damage and migrates an older one. Main thread only.
#pragma once

#include "model/SqliteDatabase.h"
#include "model/VersionedSchema.h"

#include <functional>

namespace trovell {

/// A database that is none of ours is left untouched, and so is one of a schema that the plan does
/// not have or cannot lead to the current one (`unknownSchema`). Everything stored is read and
/// checked once, so that damage is found here and not in the middle of work.
///
/// `beforeMigration` is called before an older store is changed; if it fails, nothing is.
[[nodiscard]] Expected<void, StoreError>
prepareSchema(SqliteDatabase& database, const MigrationPlan& plan,
              const std::function<Expected<void, StoreError>()>& beforeMigration);

} // namespace trovell
