// SPDX-License-Identifier: MIT
//
// What the view of one workspace uses. Main thread.
#pragma once

#include "views/shared/ViewEnvironment.h"

namespace trovell {

class AccessibilityPermissionManager;
class WorkspaceLauncher;
class WorkspaceStart;

struct DetailEnvironment : ViewEnvironment {
    AccessibilityPermissionManager& accessibility;
    WorkspaceLauncher& launcher;
    const WorkspaceStart& startWorkspace;
};

} // namespace trovell
