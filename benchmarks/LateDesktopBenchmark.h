// SPDX-License-Identifier: MIT
//
// How long the main thread is busy at a time with a desktop that answers everything late.
#pragma once

#include "Report.h"

namespace trovell::bench {

void measureLateDesktop(Report& report);

} // namespace trovell::bench
