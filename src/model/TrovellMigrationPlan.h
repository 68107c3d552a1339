// SPDX-License-Identifier: MIT
//
// All schemas the store ever had and the way between them. A new version adds its schema at the end
// and a stage from the one before.
#pragma once

#include "model/VersionedSchema.h"

namespace trovell {

struct TrovellMigrationPlan {
    [[nodiscard]] static MigrationPlan plan();
};

} // namespace trovell
