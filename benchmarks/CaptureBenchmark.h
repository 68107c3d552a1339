// SPDX-License-Identifier: MIT
//
// How long it takes to read all windows.
#pragma once

#include "Report.h"

namespace trovell::bench {

void measureCapture(Report& report);

} // namespace trovell::bench
