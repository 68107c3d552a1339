// SPDX-License-Identifier: MIT
//
// Version 2.0.0 of the store's schema: what a placement remembers besides its frame, and how items
// are opened. It describes files that exist, so it never changes: another form is another version.
#pragma once

#include "model/VersionedSchema.h"

namespace trovell {

struct TrovellSchemaV2 {
    [[nodiscard]] static VersionedSchema schema();
    [[nodiscard]] static MigrationStage fromVersion1();
};

} // namespace trovell
