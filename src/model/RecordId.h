// SPDX-License-Identifier: MIT
//
// The ids of new records. Any thread.
#pragma once

#include <QUuid>

namespace trovell {

/// An id that follows the clock (UUID version 7, RFC 9562 section 5.7): records that are made
/// together lie together in the store's indexes, however much it holds.
[[nodiscard]] QUuid makeRecordId();

} // namespace trovell
