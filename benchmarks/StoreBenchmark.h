// SPDX-License-Identifier: MIT
//
// What a large store costs: opening, listing, loading, memory and saving.
#pragma once

#include "Report.h"

namespace trovell::bench {

void measureStore(Report& report);

} // namespace trovell::bench
