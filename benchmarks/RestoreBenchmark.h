// SPDX-License-Identifier: MIT
//
// How long it takes to put all windows in place.
#pragma once

#include "Report.h"

namespace trovell::bench {

void measureRestore(Report& report);

} // namespace trovell::bench
