#include "app/AppDependencies.h"

#include <QCoreApplication>

namespace trovell {

namespace {

AccessibilityPermissionManager::Platform permissionPlatform(PlatformAdapters& platform)
{
    WindowSystem* windows = platform.windowSystem.get();
    ResourceSystem* resources = platform.resourceSystem.get();
    return {[windows] { return windows->isTrusted(); },
            [windows] { return windows->requestTrust(); },
            [resources](const QUrl& url) { (void)resources->openResource(url); },
            platform.windowControlSettings};
}

ResourceOpeningService::IsRunning runningQuestion(WindowSystem& windows)
{
    return [&windows](const QString& bundleIdentifier) {
        return !windows.runningApplications(bundleIdentifier).isEmpty();
    };
}

} // namespace

AppDependencies::AppDependencies(PlatformAdapters& platform, PreferenceStore& defaults,
                                 Clock& clock)
    : m_preferences(defaults), m_accessibility(permissionPlatform(platform), clock),
      m_resourceOpener(*platform.resourceSystem, runningQuestion(*platform.windowSystem)),
      m_windowRestorer(*platform.windowSystem),
      m_launcher(m_resourceOpener, m_windowRestorer, *platform.windowSystem, clock),
      m_windowCapture(*platform.windowSystem, QCoreApplication::applicationPid())
{
}

} // namespace trovell
