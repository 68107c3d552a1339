// SPDX-License-Identifier: MIT
//
// How smoothly the main window works with a thousand workspaces.
#pragma once

#include "Report.h"

namespace trovell::bench {

void measureList(Report& report);

} // namespace trovell::bench
