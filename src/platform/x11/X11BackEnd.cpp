// SPDX-License-Identifier: MIT

#include "platform/x11/X11BackEnd.h"

#include "platform/freedesktop/DesktopFileIndex.h"
#include "platform/freedesktop/FreedesktopAdapters.h"
#include "platform/freedesktop/OwnedBusNames.h"
#include "platform/x11/X11HotKeys.h"
#include "platform/x11/X11WindowSystem.h"

namespace trovell {

namespace {

/// What the window system asks about applications.
struct KnownApplications {
    DesktopFileIndex installed;
    OwnedBusNames running{installed};
};

std::unique_ptr<X11WindowSystem> makeWindowSystem()
{
    const auto known = std::make_shared<KnownApplications>();
    return std::make_unique<X11WindowSystem>(
        QByteArray(),
        [known](const WindowIdentity& window) { return known->installed.identify(window); },
        [known](const std::optional<QSet<QString>>& identifiers) {
            return known->running.running(identifiers);
        });
}

} // namespace

PlatformAdapters makeX11Adapters(const QString& applicationId)
{
    PlatformAdapters adapters = makeFreedesktopAdapters(applicationId);
    adapters.windowSystem = makeWindowSystem();
    adapters.hotKeySystem = std::make_unique<X11HotKeys>();
    return adapters;
}

} // namespace trovell
