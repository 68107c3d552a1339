// SPDX-License-Identifier: MIT
//
// What the program itself costs a user: its start, its idling and its memory.
#pragma once

#include "Report.h"

namespace trovell::bench {

void measureInterface(Report& report);

} // namespace trovell::bench
