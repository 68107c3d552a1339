// SPDX-License-Identifier: MIT

#include "platform/null/NullBackEnd.h"

#include "platform/freedesktop/FreedesktopAdapters.h"
#include "platform/null/NullHotKeys.h"
#include "platform/null/NullWindowSystem.h"

namespace trovell {

PlatformAdapters makeNullAdapters(const QString& applicationId)
{
    PlatformAdapters adapters = makeFreedesktopAdapters(applicationId);
    adapters.windowSystem = std::make_unique<NullWindowSystem>();
    adapters.hotKeySystem = std::make_unique<NullHotKeys>();
    return adapters;
}

} // namespace trovell
