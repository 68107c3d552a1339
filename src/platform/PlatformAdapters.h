// SPDX-License-Identifier: MIT
//
// The adapters to the desktop that this session runs on. Main thread.
#pragma once

#include "launch/ResourceSystem.h"
#include "services/HotKeySystem.h"
#include "services/LoginItemSystem.h"
#include "windows/WindowSystem.h"

#include <QUrl>

#include <functional>
#include <memory>

namespace trovell {

class DesktopFileIndex;
class OwnedBusNames;

struct PlatformAdapters {
    PlatformAdapters();
    PlatformAdapters(PlatformAdapters&&) noexcept;
    ~PlatformAdapters();

    /// What the adapters share; none where nothing needs it.
    std::unique_ptr<DesktopFileIndex> desktopFiles;
    std::unique_ptr<OwnedBusNames> busNames;

    std::unique_ptr<ResourceSystem> resourceSystem;
    std::unique_ptr<WindowSystem> windowSystem;
    std::unique_ptr<HotKeySystem> hotKeySystem;
    std::unique_ptr<LoginItemSystem> loginItemSystem;
    /// Where the user grants window control; invalid where nothing has to be granted.
    QUrl windowControlSettings;
    /// Whether windows can be translucent now. Main thread; quick.
    std::function<bool()> isComposited = [] { return true; };
};

/// Looks at the session once. In a Wayland session, even one that also runs X11 programs, windows
/// are under nobody's control until that desktop has an adapter of its own. `applicationId` names
/// the program's own desktop file, without ".desktop".
[[nodiscard]] PlatformAdapters makePlatformAdapters(const QString& applicationId);

} // namespace trovell
