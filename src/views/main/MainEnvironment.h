// SPDX-License-Identifier: MIT
//
// What the main window uses, with all that it shows. Main thread.
#pragma once

#include "views/detail/DetailEnvironment.h"
#include "views/shared/EditingEnvironment.h"

namespace trovell {

class GlobalHotKeyManager;
class WorkspaceQuery;

struct MainEnvironment : EditingEnvironment {
    WorkspaceQuery& workspaces;
    WorkspaceLauncher& launcher;
    const WorkspaceStart& startWorkspace;
    GlobalHotKeyManager& hotKeys;

    [[nodiscard]] DetailEnvironment detail() const
    {
        return {*this, accessibility, launcher, startWorkspace};
    }
};

} // namespace trovell
