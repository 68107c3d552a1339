// A product without a desktop: the real store in a folder of its own, the real services over a
// scripted desktop, and the look and words that views need. Main thread.
#pragma once

#include "app/AppConfiguration.h"
#include "app/AppDependencies.h"
#include "app/PreferenceStore.h"
#include "model/TrovellWorkspace.h"
#include "model/WorkspaceStore.h"
#include "support/FakeClock.h"
#include "support/FakeHotKeySystem.h"
#include "support/FakeLoginItemSystem.h"
#include "support/FakeResourceSystem.h"
#include "support/FakeWindowSystem.h"
#include "support/StoreFaultVfs.h"
#include "views/ViewEnvironment.h"
#include "views/workspace/ApplicationIcons.h"

#include <QMainWindow>
#include <QTemporaryDir>

namespace trovell::test {

class ViewFixture {
    /// Before the pointers to what is put into it.
    PlatformAdapters m_platform;

public:
    /// Needs the application object. Animations are off; the language is English, and the test
    /// languages "en-XA" and "ar-XB" can be chosen.
    explicit ViewFixture(const AppConfiguration& configuration = appConfiguration());
    ~ViewFixture();

    QTemporaryDir folder;
    FakeWindowSystem* windows = nullptr;
    FakeResourceSystem* resources = nullptr;
    FakeHotKeySystem* hotKeys = nullptr;
    FakeLoginItemSystem* loginItem = nullptr;
    FakeClock clock;

    [[nodiscard]] StoreContext& context() { return m_store->mainContext(); }
    [[nodiscard]] AppDependencies& dependencies() { return *m_dependencies; }
    [[nodiscard]] ViewEnvironment& environment() { return *m_environment; }

    /// A saved workspace, with the sort order after the others.
    TrovellWorkspace& addWorkspace(const QString& name);
    /// Saved with it; an application's URL names a desktop file in the fixture's folder.
    WorkspaceItem& addItem(TrovellWorkspace& workspace, WorkspaceItemType type,
                           const QString& displayName, const QString& urlString = {});
    /// Saved with it; on the display of the scripted desktop, in its middle.
    WindowPlacement& addPlacement(TrovellWorkspace& workspace, const QString& bundleIdentifier);

    /// Stops the test program when the store does not save.
    void save();

    /// Whether windows may be controlled, told at once.
    void setTrusted(bool isTrusted);

    /// From now on every save fails, until `allowSaving`.
    void refuseSaving();
    void allowSaving();

    /// A window to show views in; owned by the fixture.
    [[nodiscard]] QMainWindow& window() { return *m_window; }

private:
    StoreFaultVfs m_disk;
    const AppConfiguration m_configuration;
    std::unique_ptr<PreferenceStore> m_defaults;
    std::unique_ptr<VisualStyle> m_visual;
    std::unique_ptr<Localization> m_words;
    std::unique_ptr<WorkspaceStore> m_store;
    std::unique_ptr<AppDependencies> m_dependencies;
    std::unique_ptr<WorkspaceQuery> m_query;
    std::unique_ptr<ApplicationIcons> m_icons;
    std::unique_ptr<ViewEnvironment> m_environment;
    std::unique_ptr<QMainWindow> m_window;
};

} // namespace trovell::test
