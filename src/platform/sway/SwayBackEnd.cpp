// SPDX-License-Identifier: MIT

#include "platform/sway/SwayBackEnd.h"

#include "platform/freedesktop/DesktopFileIndex.h"
#include "platform/freedesktop/FreedesktopAdapters.h"
#include "platform/freedesktop/OwnedBusNames.h"
#include "platform/sway/SwayHotKeys.h"
#include "platform/sway/SwaySession.h"
#include "platform/sway/SwayWindowSystem.h"
#include "platform/x11/X11HotKeys.h"
#include "platform/x11/X11WindowDetails.h"

namespace trovell {

namespace {

/// What the window system asks about applications.
struct ApplicationFacts {
    DesktopFileIndex installed;
    OwnedBusNames running{installed};
};

PlatformAdapters makeAdapters(const QString& applicationId, const QByteArray& socketPath,
                              const X11WindowQuestion& askX11)
{
    PlatformAdapters adapters = makeFreedesktopAdapters(applicationId);
    const auto facts = std::make_shared<ApplicationFacts>();
    adapters.windowSystem = std::make_unique<SwayWindowSystem>(
        socketPath,
        [facts](const WindowIdentity& window) { return facts->installed.identify(window); },
        [facts](const std::optional<QSet<QString>>& identifiers) {
            return facts->running.running(identifiers);
        },
        askX11);
    return adapters;
}

} // namespace

bool isSwaySession(const SessionFacts& session)
{
    return !swaySocket(session).isEmpty();
}

PlatformAdapters makeSwayAdapters(const QString& applicationId)
{
    const QByteArray socketPath = swaySocket(sessionFacts());
    PlatformAdapters adapters = makeAdapters(applicationId, socketPath, {});
    adapters.hotKeySystem = std::make_unique<SwayHotKeys>(socketPath);
    return adapters;
}

bool isI3Session(const SessionFacts& session)
{
    return !i3Socket(session).isEmpty();
}

PlatformAdapters makeI3Adapters(const QString& applicationId)
{
    const auto details = std::make_shared<X11WindowDetails>();
    PlatformAdapters adapters =
        makeAdapters(applicationId, i3Socket(sessionFacts()),
                     [details](quint32 window) { return details->factsOf(window); });
    // It binds no keys for other programs.
    adapters.hotKeySystem = std::make_unique<X11HotKeys>();
    return adapters;
}

} // namespace trovell
