// SPDX-License-Identifier: MIT
//
// How every surface writes the store. Main thread.
#pragma once

#include "support/Expected.h"
#include "support/Message.h"

namespace trovell {

class StoreContext;

/// Saves what was changed. If that fails, everything is rolled back and the answer is why.
[[nodiscard]] Expected<void, Message> saveOrRollBack(StoreContext& context);

} // namespace trovell
