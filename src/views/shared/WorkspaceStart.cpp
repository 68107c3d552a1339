// SPDX-License-Identifier: MIT

#include "views/shared/WorkspaceStart.h"

#include "app/AppDependencies.h"

namespace trovell {

void startWorkspace(AppDependencies& dependencies, TrovellWorkspace& workspace)
{
    AccessibilityPermissionManager& accessibility = dependencies.accessibility();
    accessibility.refresh();
    dependencies.launcher().start(&workspace, accessibility.isTrusted(),
                                  dependencies.preferences().launchTimeout());
}

} // namespace trovell
