// SPDX-License-Identifier: MIT
//
// How soon the capture sheet shows what is open.
#pragma once

#include "Report.h"

namespace trovell::bench {

void measureSheet(Report& report);

} // namespace trovell::bench
