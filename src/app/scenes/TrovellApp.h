// SPDX-License-Identifier: MIT
//
// The application: opens the store, creates the services, and declares the surfaces that people
// see: the main window, the menu bar extra and the settings. Main thread.
#pragma once

#include "app/AppDependencies.h"
#include "app/scenes/DesktopLook.h"
#include "model/WorkspaceQuery.h"
#include "model/WorkspaceStore.h"
#include "preferences/PreferenceStore.h"
#include "support/SystemClock.h"
#include "views/main/MainEnvironment.h"
#include "views/shared/ApplicationIcons.h"

#include <QObject>

#include <memory>

namespace trovell {

class MenuBarExtra;
class SceneWindow;

class TrovellApp : public QObject {
    Q_OBJECT

public:
    /// Needs the QApplication, whose look and language it takes over. `store` is open.
    TrovellApp(PlatformAdapters platform, std::unique_ptr<WorkspaceStore> store);
    ~TrovellApp() override;

    /// Opens the main window or brings it forward, even over other programs. The token proves that
    /// the user has just asked for it; it may be empty.
    void openMainWindow(const QString& startupToken = {});
    void openSettings();
    void openUpdates();

private:
    [[nodiscard]] std::unique_ptr<SceneWindow> makeMainWindow();
    [[nodiscard]] std::unique_ptr<SceneWindow> makeSettingsWindow();
    [[nodiscard]] std::unique_ptr<SceneWindow> makeUpdateWindow();
    void insertMenuBarExtra();
    void addCommands(SceneWindow& window);
    void bringForward(SceneWindow& window, const QString& startupToken = {});
    void quitAfterLastWindow();
    void quit();

    PlatformAdapters m_platform;
    PreferenceStore m_defaults;
    SystemClock m_clock;
    std::unique_ptr<WorkspaceStore> m_modelContainer;
    AppDependencies m_dependencies;
    VisualStyle m_visual;
    Localization m_words;
    DesktopLook m_look;
    WorkspaceQuery m_workspaces;
    ApplicationIcons m_icons;
    MainEnvironment m_environment;
    std::unique_ptr<MenuBarExtra> m_menuBarExtra;
    std::unique_ptr<SceneWindow> m_mainWindow;
    std::unique_ptr<SceneWindow> m_settingsWindow;
    std::unique_ptr<SceneWindow> m_updateWindow;
};

} // namespace trovell
