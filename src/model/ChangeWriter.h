// SPDX-License-Identifier: MIT
//
// Writes what changed in the records of a context to the database. Main thread only.
#pragma once

#include "model/RecordRows.h"

namespace trovell {

/// Belongs into a transaction: after an error, part of the changes may be written. `touched` holds
/// every workspace with a change in itself, its items or its placements.
[[nodiscard]] Expected<void, StoreError> writeChanges(RecordRows& rows,
                                                      const QList<TrovellWorkspace*>& touched);

} // namespace trovell
