// SPDX-License-Identifier: MIT
//
// What the settings window uses. Main thread.
#pragma once

#include "views/shared/ViewEnvironment.h"

namespace trovell {

class AppPreferences;
class LaunchAtLoginService;
class ResourceSystem;
class UpdateController;
struct AppConfiguration;

struct SettingsEnvironment : ViewEnvironment {
    AppPreferences& preferences;
    LaunchAtLoginService& launchAtLogin;
    UpdateController& updateController;
    ResourceSystem& resources;
    const AppConfiguration& configuration;
};

} // namespace trovell
