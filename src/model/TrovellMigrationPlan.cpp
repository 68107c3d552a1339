// SPDX-License-Identifier: MIT

#include "model/TrovellMigrationPlan.h"

#include "model/TrovellSchemaV1.h"
#include "model/TrovellSchemaV2.h"

namespace trovell {

MigrationPlan TrovellMigrationPlan::plan()
{
    return {.schemas = {TrovellSchemaV1::schema(), TrovellSchemaV2::schema()},
            .stages = {TrovellSchemaV2::fromVersion1()}};
}

} // namespace trovell
