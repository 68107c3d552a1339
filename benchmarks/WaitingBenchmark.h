// SPDX-License-Identifier: MIT
//
// What it costs to wait for windows that do not come.
#pragma once

#include "Report.h"

namespace trovell::bench {

void measureWaiting(Report& report);

} // namespace trovell::bench
