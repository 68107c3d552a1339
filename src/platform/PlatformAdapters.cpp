// SPDX-License-Identifier: MIT

#include "platform/PlatformAdapters.h"

#include "platform/freedesktop/AutostartLoginItem.h"
#include "platform/freedesktop/DesktopFileIndex.h"
#include "platform/freedesktop/GioResourceSystem.h"
#include "platform/freedesktop/OwnedBusNames.h"
#include "platform/null/NullHotKeys.h"
#include "platform/null/NullWindowSystem.h"
#include "platform/x11/X11Compositor.h"
#include "platform/x11/X11HotKeys.h"
#include "platform/x11/X11WindowSystem.h"

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

bool isWaylandSession()
{
    return qEnvironmentVariable("XDG_SESSION_TYPE") == u"wayland"_s ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

std::unique_ptr<WindowSystem> makeX11WindowSystem(PlatformAdapters& adapters)
{
    adapters.desktopFiles = std::make_unique<DesktopFileIndex>();
    adapters.busNames = std::make_unique<OwnedBusNames>(*adapters.desktopFiles);
    DesktopFileIndex* files = adapters.desktopFiles.get();
    OwnedBusNames* names = adapters.busNames.get();
    return std::make_unique<X11WindowSystem>(
        QByteArray(), [files](const WindowIdentity& window) { return files->identify(window); },
        [names](const std::optional<QSet<QString>>& identifiers) {
            return names->running(identifiers);
        });
}

} // namespace

PlatformAdapters::PlatformAdapters() = default;
PlatformAdapters::PlatformAdapters(PlatformAdapters&&) noexcept = default;
PlatformAdapters::~PlatformAdapters() = default;

PlatformAdapters makePlatformAdapters(const QString& applicationId)
{
    PlatformAdapters adapters;
    adapters.resourceSystem = std::make_unique<GioResourceSystem>();
    adapters.loginItemSystem = std::make_unique<AutostartLoginItem>(applicationId);
    const bool isX11 = !isWaylandSession() && !qEnvironmentVariableIsEmpty("DISPLAY");
    if (isX11) {
        adapters.windowSystem = makeX11WindowSystem(adapters);
        adapters.hotKeySystem = std::make_unique<X11HotKeys>();
        adapters.isComposited = &hasX11Compositor;
    } else {
        adapters.windowSystem = std::make_unique<NullWindowSystem>();
        adapters.hotKeySystem = std::make_unique<NullHotKeys>();
    }
    return adapters;
}

} // namespace trovell
