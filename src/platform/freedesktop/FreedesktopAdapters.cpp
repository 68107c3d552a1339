// SPDX-License-Identifier: MIT

#include "platform/freedesktop/FreedesktopAdapters.h"

#include "platform/freedesktop/AutostartLoginItem.h"
#include "platform/freedesktop/DesktopActivation.h"
#include "platform/freedesktop/GioResourceSystem.h"
#include "platform/freedesktop/PortalSettings.h"

namespace trovell {

using namespace Qt::StringLiterals;

std::unique_ptr<ActivationSystem> makeDBusActivation(const QString& applicationId)
{
    return std::make_unique<DesktopActivation>(applicationId.toLatin1());
}

PlatformAdapters makeFreedesktopAdapters(const QString& applicationId)
{
    PlatformAdapters adapters;
    adapters.resourceSystem = std::make_unique<GioResourceSystem>();
    adapters.loginItemSystem = std::make_unique<AutostartLoginItem>(applicationId);
    adapters.settings = std::make_unique<PortalSettings>();
    adapters.trayIconName = applicationId + u"-symbolic"_s;
    return adapters;
}

} // namespace trovell
