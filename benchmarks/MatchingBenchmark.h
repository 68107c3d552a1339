// SPDX-License-Identifier: MIT
//
// How long it takes to pair saved placements with windows.
#pragma once

#include "Report.h"

namespace trovell::bench {

void measureMatching(Report& report);

} // namespace trovell::bench
