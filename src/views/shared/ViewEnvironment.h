// SPDX-License-Identifier: MIT
//
// What every surface is given; nothing of it is created or owned by a view. Main thread.
#pragma once

#include "app/AppDependencies.h"
#include "model/WorkspaceQuery.h"
#include "views/style/VisualStyle.h"
#include "views/words/Localization.h"
#include "views/words/Phrases.h"

namespace trovell {

class ApplicationIcons;
class StoreContext;

/// References to things that outlive every window. Views copy it.
struct ViewEnvironment {
    VisualStyle& visual;
    Localization& words;
    AppDependencies& dependencies;
    StoreContext& context;
    WorkspaceQuery& workspaces;
    ApplicationIcons& icons;
};

} // namespace trovell
