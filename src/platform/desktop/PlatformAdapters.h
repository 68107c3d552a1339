// SPDX-License-Identifier: MIT
//
// All that the program asks of its desktop, as one back end made it. Main thread.
#pragma once

#include "launch/ResourceSystem.h"
#include "services/DesktopSettings.h"
#include "services/HotKeySystem.h"
#include "services/LoginItemSystem.h"
#include "windows/WindowSystem.h"

#include <QUrl>

#include <memory>

namespace trovell {

/// None of the pointers is null.
struct PlatformAdapters {
    std::shared_ptr<ResourceSystem> resourceSystem;
    std::unique_ptr<WindowSystem> windowSystem;
    std::unique_ptr<HotKeySystem> hotKeySystem;
    std::unique_ptr<LoginItemSystem> loginItemSystem;
    std::unique_ptr<DesktopSettings> settings;
    /// Where the user grants window control; invalid where nothing has to be granted.
    QUrl windowControlSettings = {};
    /// The icon of the theme that the desktop's tray tints; empty where there is none.
    QString trayIconName = {};
};

} // namespace trovell
