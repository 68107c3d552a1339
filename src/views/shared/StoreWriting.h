// SPDX-License-Identifier: MIT
//
// How every surface writes the store. Main thread.
#pragma once

#include "support/Expected.h"

#include <QString>

namespace trovell {

class StoreContext;

/// Saves what was changed. If that fails, everything is rolled back and the answer is why, in the
/// product's words.
[[nodiscard]] Expected<void, QString> saveOrRollBack(StoreContext& context);

} // namespace trovell
