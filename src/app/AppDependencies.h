// SPDX-License-Identifier: MIT
//
// The long-lived services, created once in a fixed order and handed to everything that needs them.
// Nothing else creates one. Main thread.
#pragma once

#include "editing/WorkspaceStart.h"
#include "launch/ResourceOpeningService.h"
#include "launch/WorkspaceLauncher.h"
#include "platform/desktop/PlatformAdapters.h"
#include "preferences/AppPreferences.h"
#include "services/GlobalHotKeyManager.h"
#include "services/LaunchAtLoginService.h"
#include "services/update/UpdateController.h"
#include "support/Clock.h"
#include "windows/AccessibilityPermissionManager.h"
#include "windows/WindowCaptureService.h"
#include "windows/WindowRestoreService.h"

namespace trovell {

struct AppConfiguration;

class AppDependencies {
public:
    /// All four outlive the services.
    AppDependencies(PlatformAdapters& platform, PreferenceStore& defaults, Clock& clock,
                    const AppConfiguration& configuration);
    /// Waits for the workers that still look for files.
    ~AppDependencies();
    Q_DISABLE_COPY_MOVE(AppDependencies)

    [[nodiscard]] const AppConfiguration& configuration() const { return m_configuration; }
    [[nodiscard]] PreferenceStore& defaults() { return m_defaults; }
    [[nodiscard]] AppPreferences& preferences() { return m_preferences; }
    [[nodiscard]] AccessibilityPermissionManager& accessibility() { return m_accessibility; }
    [[nodiscard]] WorkspaceLauncher& launcher() { return m_launcher; }
    [[nodiscard]] const WorkspaceStart& startWorkspace() const { return m_startWorkspace; }
    [[nodiscard]] WindowCaptureService& windowCapture() { return m_windowCapture; }
    [[nodiscard]] LaunchAtLoginService& launchAtLogin() { return m_launchAtLogin; }
    [[nodiscard]] UpdateController& updateController() { return m_updateController; }
    [[nodiscard]] GlobalHotKeyManager& hotKeys() { return m_hotKeys; }

    /// Finds applications and makes bookmarks for items that are added.
    [[nodiscard]] ResourceSystem& resources() { return *m_platform.resourceSystem; }

private:
    const AppConfiguration& m_configuration;
    PlatformAdapters& m_platform;
    PreferenceStore& m_defaults;
    AppPreferences m_preferences;
    AccessibilityPermissionManager m_accessibility;
    ResourceOpeningService m_resourceOpener;
    WindowRestoreService m_windowRestorer;
    WorkspaceLauncher m_launcher;
    WorkspaceStart m_startWorkspace;
    WindowCaptureService m_windowCapture;
    LaunchAtLoginService m_launchAtLogin;
    UpdateController m_updateController;
    GlobalHotKeyManager m_hotKeys;
};

} // namespace trovell
