// SPDX-License-Identifier: MIT
//
// What each surface uses of the services. All that is handed in outlives the surfaces. Main thread.
#pragma once

#include "app/AppDependencies.h"
#include "views/app/MenuBarWorkspaceView.h"
#include "views/app/SettingsEnvironment.h"
#include "views/main/MainEnvironment.h"

namespace trovell {

[[nodiscard]] inline MainEnvironment mainEnvironment(const ViewEnvironment& look,
                                                     AppDependencies& services,
                                                     StoreContext& context,
                                                     WorkspaceQuery& workspaces)
{
    return {
        {look, context, services.accessibility(), services.windowCapture(), services.resources()},
        workspaces,
        services.launcher(),
        services.startWorkspace(),
        services.hotKeys()};
}

[[nodiscard]] inline SettingsEnvironment settingsEnvironment(const ViewEnvironment& look,
                                                             AppDependencies& services)
{
    return {look,
            services.preferences(),
            services.launchAtLogin(),
            services.updateController(),
            services.resources(),
            services.configuration()};
}

[[nodiscard]] inline MenuBarEnvironment menuBarEnvironment(const ViewEnvironment& look,
                                                           AppDependencies& services,
                                                           WorkspaceQuery& workspaces)
{
    return {look, workspaces, services.startWorkspace(), services.updateController(),
            services.launcher()};
}

} // namespace trovell
