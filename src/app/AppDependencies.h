// The long-lived services, created once in a fixed order and handed to everything that needs them.
// Nothing else creates one. Main thread.
#pragma once

#include "app/AppPreferences.h"
#include "launch/ResourceOpeningService.h"
#include "launch/WorkspaceLauncher.h"
#include "platform/PlatformAdapters.h"
#include "support/Clock.h"
#include "windows/AccessibilityPermissionManager.h"
#include "windows/WindowCaptureService.h"
#include "windows/WindowRestoreService.h"

namespace trovell {

class AppDependencies {
public:
    /// All three outlive the services.
    AppDependencies(PlatformAdapters& platform, PreferenceStore& defaults, Clock& clock);
    Q_DISABLE_COPY_MOVE(AppDependencies)

    [[nodiscard]] AppPreferences& preferences() { return m_preferences; }
    [[nodiscard]] AccessibilityPermissionManager& accessibility() { return m_accessibility; }
    [[nodiscard]] WorkspaceLauncher& launcher() { return m_launcher; }
    [[nodiscard]] WindowCaptureService& windowCapture() { return m_windowCapture; }

private:
    AppPreferences m_preferences;
    AccessibilityPermissionManager m_accessibility;
    ResourceOpeningService m_resourceOpener;
    WindowRestoreService m_windowRestorer;
    WorkspaceLauncher m_launcher;
    WindowCaptureService m_windowCapture;
};

} // namespace trovell
