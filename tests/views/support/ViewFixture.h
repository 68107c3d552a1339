// SPDX-License-Identifier: MIT
//
// A product without a desktop: the real store in a folder of its own, the real services over a
// scripted desktop, and the look and words that views need. Main thread.
#pragma once

#include "app/scenes/SurfaceEnvironments.h"
#include "model/TrovellWorkspace.h"
#include "model/WorkspaceQuery.h"
#include "preferences/AppConfiguration.h"
#include "preferences/PreferenceStore.h"
#include "support/FakeClock.h"
#include "support/FakeHotKeySystem.h"
#include "support/FakeLoginItemSystem.h"
#include "support/FakeResourceSystem.h"
#include "support/FakeWindowSystem.h"
#include "support/StoreFixture.h"
#include "views/shared/ApplicationIcons.h"

#include <QMainWindow>

namespace trovell::test {

using namespace Qt::StringLiterals;

class ViewFixture : public StoreFixture {
    /// Before the pointers to what is put into it.
    PlatformAdapters m_platform;

    template <class Fake, class Pointer> static Fake* adopt(Pointer& place)
    {
        place = std::make_unique<Fake>();
        return static_cast<Fake*>(place.get());
    }

public:
    /// Needs the application object. Animations are off; the language is English, and the test
    /// languages "en-XA" and "ar-XB" can be chosen.
    explicit ViewFixture(const AppConfiguration& configuration = appConfiguration());

    FakeWindowSystem* const windows = adopt<FakeWindowSystem>(m_platform.windowSystem);
    FakeResourceSystem* const resources = adopt<FakeResourceSystem>(m_platform.resourceSystem);
    FakeHotKeySystem* const hotKeys = adopt<FakeHotKeySystem>(m_platform.hotKeySystem);
    FakeLoginItemSystem* const loginItem = adopt<FakeLoginItemSystem>(m_platform.loginItemSystem);
    FakeClock clock;

    [[nodiscard]] AppDependencies& dependencies() { return m_dependencies; }
    [[nodiscard]] MainEnvironment& environment() { return m_environment; }
    /// The same over another store.
    [[nodiscard]] MainEnvironment environment(StoreContext& store, WorkspaceQuery& workspaces)
    {
        return mainEnvironment({m_visual, m_words, m_icons}, m_dependencies, store, workspaces);
    }
    [[nodiscard]] SettingsEnvironment settings()
    {
        return settingsEnvironment(m_environment, m_dependencies);
    }
    [[nodiscard]] MenuBarEnvironment menuBar()
    {
        return menuBarEnvironment(m_environment, m_dependencies, m_query);
    }

    /// Whether windows may be controlled, told at once.
    void setTrusted(bool isTrusted);

    /// A window to show views in; owned by the fixture.
    [[nodiscard]] QMainWindow& window() { return m_window; }

private:
    const AppConfiguration m_configuration;
    PreferenceStore m_defaults{folder.filePath(u"preferences.json"_s)};
    VisualStyle m_visual;
    Localization m_words;
    AppDependencies m_dependencies{m_platform, m_defaults, clock, m_configuration};
    WorkspaceQuery m_query{context()};
    ApplicationIcons m_icons{*resources};
    MainEnvironment m_environment = environment(context(), m_query);
    QMainWindow m_window;
};

} // namespace trovell::test
