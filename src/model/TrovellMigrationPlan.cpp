// SPDX-License-Identifier: MIT

#include "model/TrovellMigrationPlan.h"

#include "model/TrovellSchemaV1.h"

namespace trovell {

MigrationPlan TrovellMigrationPlan::plan()
{
    return {.schemas = {TrovellSchemaV1::schema()}, .stages = {}};
}

} // namespace trovell
