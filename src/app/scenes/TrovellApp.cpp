// SPDX-License-Identifier: MIT

#include "app/scenes/TrovellApp.h"

#include "app/AppFolders.h"
#include "app/scenes/MenuBarExtra.h"
#include "app/scenes/SceneWindow.h"
#include "app/scenes/SurfaceEnvironments.h"
#include "preferences/AppConfiguration.h"
#include "services/update/Updater.h"
#include "views/app/OnboardingView.h"
#include "views/app/RootView.h"
#include "views/app/SettingsView.h"
#include "views/app/UpdateView.h"

#include <QApplication>
#include <QIcon>
#include <QPainter>
#include <QShortcut>
#include <QTimer>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

/// For desktops that find no icon of the program's id, as when it is not installed.
QIcon logo(const VisualStyle& visual)
{
    QIcon icon;
    for (const int size : {16, 32, 48, 128}) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        visual.paintLogo(painter, pixmap.rect());
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

} // namespace

TrovellApp::TrovellApp(PlatformAdapters platform, std::unique_ptr<WorkspaceStore> store)
    : m_platform(std::move(platform)), m_defaults(preferencesFile()),
      m_modelContainer(std::move(store)),
      m_dependencies(m_platform, m_defaults, m_clock, appConfiguration()),
      m_look(m_visual, m_words, m_dependencies.preferences(), m_platform),
      m_workspaces(m_modelContainer->mainContext()), m_icons(m_dependencies.resources()),
      m_environment(mainEnvironment({m_visual, m_words, m_icons}, m_dependencies,
                                    m_modelContainer->mainContext(), m_workspaces))
{
    m_visual.install(*qApp);
    QApplication::setQuitOnLastWindowClosed(false);
    m_mainWindow = makeMainWindow();
    // The window comes first; the tray may have to wait for the bus.
    QTimer::singleShot(0, this, [this] {
        QGuiApplication::setWindowIcon(logo(m_visual));
        insertMenuBarExtra();
    });
    if (Updater* updater = m_dependencies.updateController().controller())
        connect(updater, &Updater::checkRequested, this, &TrovellApp::openUpdates);
}

TrovellApp::~TrovellApp() = default;

std::unique_ptr<SceneWindow> TrovellApp::makeMainWindow()
{
    auto window = std::make_unique<SceneWindow>();
    window->setObjectName(u"main"_s);
    window->setWindowTitle(u"Trovell"_s);
    window->setMinimumSize(900, 620);
    window->resize(1180, 760);
    auto* root = new RootView(m_environment, m_defaults, window.get());
    window->setCentralWidget(root);
    connect(root, &RootView::settingsRequested, this, &TrovellApp::openSettings);
    addCommands(*window);
    return window;
}

std::unique_ptr<SceneWindow> TrovellApp::makeSettingsWindow()
{
    auto window = std::make_unique<SceneWindow>();
    window->setFixedSize(680, 560);
    window->setCentralWidget(
        new SettingsView(settingsEnvironment(m_environment, m_dependencies), window.get()));
    m_words.render(window.get(), [this, shown = window.get()] {
        shown->setWindowTitle(m_words.text(u"Settings"_key));
    });
    addCommands(*window);
    return window;
}

std::unique_ptr<SceneWindow> TrovellApp::makeUpdateWindow()
{
    auto window = std::make_unique<SceneWindow>();
    Updater& updater = *m_dependencies.updateController().controller();
    window->setCentralWidget(new UpdateView(m_environment, updater, window.get()));
    m_words.render(window.get(), [this, shown = window.get()] {
        shown->setWindowTitle(m_words.text(u"Software Update"_key));
    });
    addCommands(*window);
    return window;
}

void TrovellApp::insertMenuBarExtra()
{
    m_menuBarExtra = std::make_unique<MenuBarExtra>(
        menuBarEnvironment(m_environment, m_dependencies, m_workspaces),
        m_dependencies.preferences(), m_platform.trayIconName);
    const MenuBarWorkspaceView& menu = m_menuBarExtra->content();
    connect(&menu, &MenuBarWorkspaceView::openMainWindowRequested, this,
            [this] { openMainWindow(); });
    connect(&menu, &MenuBarWorkspaceView::settingsRequested, this, &TrovellApp::openSettings);
    connect(&menu, &MenuBarWorkspaceView::quitRequested, this, &TrovellApp::quit);
}

/// The commands that a menu bar would hold.
void TrovellApp::addCommands(SceneWindow& window)
{
    auto* open = new QShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_O), &window);
    connect(open, &QShortcut::activated, this, [this] { openMainWindow(); });
    auto* settings = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Comma), &window);
    connect(settings, &QShortcut::activated, this, &TrovellApp::openSettings);
    auto* quit = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q), &window);
    connect(quit, &QShortcut::activated, this, &TrovellApp::quit);
    connect(&window, &SceneWindow::closed, this, &TrovellApp::quitAfterLastWindow,
            Qt::QueuedConnection);
}

void TrovellApp::openMainWindow(const QString& startupToken)
{
    bringForward(*m_mainWindow, startupToken);
}

void TrovellApp::openSettings()
{
    if (!m_settingsWindow)
        m_settingsWindow = makeSettingsWindow();
    bringForward(*m_settingsWindow);
}

void TrovellApp::openUpdates()
{
    if (!m_updateWindow)
        m_updateWindow = makeUpdateWindow();
    bringForward(*m_updateWindow);
}

void TrovellApp::bringForward(SceneWindow& window, const QString& startupToken)
{
    if (!startupToken.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", startupToken.toUtf8()); // read by Qt on Wayland
    const bool isNew = !window.windowHandle();
    const auto activate = [this, &window] {
        m_platform.windowSystem->activateOwnWindow(window.winId());
    };
    // A new window gets the focus from the window manager, if the user has not gone on meanwhile.
    // One that comes back would only blink: the user last touched it long ago.
    if (!isNew && window.isVisible())
        activate();
    else if (!isNew)
        connect(&window, &SceneWindow::appeared, this, activate, Qt::SingleShotConnection);
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.activateWindow();
}

void TrovellApp::quitAfterLastWindow()
{
    const QList<QWidget*> windows = QApplication::topLevelWidgets();
    const bool isAnyOpen = std::any_of(windows.begin(), windows.end(), [](const QWidget* window) {
        return qobject_cast<const SceneWindow*>(window) && window->isVisible();
    });
    if (!isAnyOpen && terminatesAfterLastWindowClosed(m_defaults))
        quit();
}

/// Unlike QCoreApplication::quit, without closing windows first: a sheet that is open would refuse
/// that, and the guide would count as seen.
void TrovellApp::quit()
{
    QCoreApplication::exit();
}

} // namespace trovell
