// SPDX-License-Identifier: MIT
//
// The product at work on a virtual desktop, without its windows: real adapters, a real store, the
// system's clock. Main thread of a test.
#pragma once

#include "app/AppDependencies.h"
#include "lab/VirtualDesktop.h"
#include "model/WorkspaceStore.h"
#include "platform/BackEnds.h"
#include "preferences/PreferenceStore.h"
#include "support/SystemClock.h"

#include <QStringList>
#include <QTemporaryDir>

namespace trovell::test {

using namespace lab;

class LayoutSession {
public:
    /// The desktop is entered (see `VirtualDesktop::enter`) and outlives the session.
    explicit LayoutSession(VirtualDesktop& desktop);

    enum class Items { none, applications };
    /// Captures everything that is open into a new, saved workspace, as the sheet does it, with
    /// its applications as launch items or without; null when that failed.
    TrovellWorkspace* capture(Items items = Items::none);

    /// Starts the workspace and returns the report's lines as "name: kind" or "name: kind detail",
    /// sorted by the window's index.
    QStringList start(TrovellWorkspace& workspace, double timeoutSeconds = 5);

    AppDependencies& dependencies() { return m_dependencies; }
    StoreContext& context() { return m_store->mainContext(); }
    WindowSystem& windowSystem() { return *m_platform.windowSystem; }

private:
    QTemporaryDir m_folder;
    PlatformAdapters m_platform;
    PreferenceStore m_defaults;
    SystemClock m_clock;
    AppDependencies m_dependencies;
    std::unique_ptr<WorkspaceStore> m_store;
};

} // namespace trovell::test
