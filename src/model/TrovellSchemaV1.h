// SPDX-License-Identifier: MIT
//
// Version 1.0.0 of the store's schema. It describes files that exist, so it never changes: another
// form is another version.
#pragma once

#include "model/VersionedSchema.h"

namespace trovell {

struct TrovellSchemaV1 {
    [[nodiscard]] static VersionedSchema schema();
};

} // namespace trovell
