// SPDX-License-Identifier: MIT

#include "app/AppDependencies.h"

#include "preferences/AppConfiguration.h"

#include <QCoreApplication>
#include <QThreadPool>

namespace trovell {

namespace {

AccessibilityPermissionManager::Platform permissionPlatform(PlatformAdapters& platform)
{
    WindowSystem* windows = platform.windowSystem.get();
    ResourceSystem* resources = platform.resourceSystem.get();
    const auto isAvailable = [](WindowControl control) {
        return control == WindowControl::available;
    };
    return {[windows, isAvailable] {
                return windows->ask({}).then([isAvailable](const DesktopSnapshot& desktop) {
                    return isAvailable(desktop.control);
                });
            },
            [windows, isAvailable] { return windows->requestControl().then(isAvailable); },
            [resources](const QUrl& url) { (void)resources->openResource(url); },
            platform.windowControlSettings};
}

ResourceOpeningService::IsRunning runningQuestion(WindowSystem& windows)
{
    return [&windows](const QString& bundleIdentifier, bool needsWindow) {
        const auto isRunning = [needsWindow](const DesktopSnapshot& desktop) {
            const bool looksForWindow = needsWindow && desktop.control == WindowControl::available;
            return std::ranges::any_of(desktop.applications, [=](const auto& application) {
                return !looksForWindow || !application.windows.isEmpty();
            });
        };
        return windows
            .ask({.applications = DesktopQuestion::Applications::named,
                  .identifiers = {bundleIdentifier},
                  .windows = needsWindow,
                  .withoutWindows = true})
            .then(isRunning);
    };
}

/// Looks for the authorities to trust only where something will be fetched.
UpdateEnvironment updateEnvironment(const AppConfiguration& configuration, ResourceSystem& system)
{
    if (!configuration.sparkleAppcastURL || !configuration.sparklePublicKey)
        return {};
    return standardUpdateEnvironment(
        configuration.shortVersion.value_or(QString()),
        [&system](const QString& path) { return system.openResource(QUrl::fromLocalFile(path)); });
}

} // namespace

AppDependencies::AppDependencies(PlatformAdapters& platform, PreferenceStore& defaults,
                                 Clock& clock, const AppConfiguration& configuration)
    : m_configuration(configuration), m_platform(platform), m_defaults(defaults),
      m_preferences(defaults), m_accessibility(permissionPlatform(platform), clock),
      m_resourceOpener(platform.resourceSystem, runningQuestion(*platform.windowSystem)),
      m_windowRestorer(*platform.windowSystem, clock),
      m_launcher(m_resourceOpener, m_windowRestorer, *platform.windowSystem, clock),
      m_startWorkspace(m_accessibility, m_launcher,
                       [this] { return m_preferences.launchTimeout(); }),
      m_windowCapture(*platform.windowSystem, QCoreApplication::applicationPid()),
      m_launchAtLogin(*platform.loginItemSystem),
      m_updateController(configuration.sparkleAppcastURL, configuration.sparklePublicKey,
                         updateEnvironment(configuration, *platform.resourceSystem)),
      m_hotKeys(*platform.hotKeySystem)
{
    // Idle workers sleep for good: ending them would wake an idle process.
    QThreadPool::globalInstance()->setExpiryTimeout(-1);
}

AppDependencies::~AppDependencies()
{
    QThreadPool::globalInstance()->waitForDone();
}

} // namespace trovell
