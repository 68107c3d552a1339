// SPDX-License-Identifier: MIT
//
// A whole private desktop for tests, benchmarks and pictures: an X server with two displays, a
// window manager, a D-Bus session and an own HOME. Real programs and scripted clients run on it;
// nothing of the user's session is touched, and nothing outlives the object. Main thread. A desktop
// that does not start is a test failure, never a reason to skip.
#pragma once

#include "lab/DesktopInspector.h"

#include <QByteArrayList>
#include <QList>
#include <QProcess>
#include <QProcessEnvironment>
#include <QRect>
#include <QSize>
#include <QString>
#include <QTemporaryDir>

#include <memory>
#include <vector>

namespace trovell::lab {

/// The programs of this build: the product, and the one whose windows are scripted.
const char* productPath();
const char* scriptedClientPath();

enum class WindowManager { none, openbox, xfwm4, metacity, marco, mutter, kwin, icewm, i3 };

/// The program's name, for messages and data tags.
const char* windowManagerName(WindowManager windowManager);

/// All that tools/packages names and that let windows overlap; one that is missing fails the test.
inline const QList<WindowManager> windowManagers = {
    WindowManager::openbox, WindowManager::xfwm4, WindowManager::metacity, WindowManager::marco,
    WindowManager::mutter,  WindowManager::kwin,  WindowManager::icewm};

/// One row for each, in a column "windowManager".
void addWindowManagerRows(const QList<WindowManager>& rows = windowManagers);

/// A `desktop` and its `inspector` for the rest of a test function.
#define START_DESKTOP(windowManager)                                                               \
    VirtualDesktop desktop(windowManager);                                                         \
    QVERIFY2(desktop.isReady(), qPrintable(desktop.error()));                                      \
    [[maybe_unused]] DesktopInspector& inspector = desktop.inspector()

class VirtualDesktop {
public:
    /// Returns when a window opened now would be managed at once, or when something failed.
    explicit VirtualDesktop(WindowManager windowManager);
    /// Ends every process that was started here, also those that programs started themselves.
    ~VirtualDesktop();
    Q_DISABLE_COPY_MOVE(VirtualDesktop)

    bool isReady() const { return m_error.isEmpty(); }
    /// What did not start, with its output; empty when all did.
    QString error() const { return m_error; }

    /// Such as ":7".
    const QByteArray& displayName() const { return m_displayName; }
    /// The private HOME; XDG_CONFIG_HOME is ".config" in it, XDG_DATA_HOME ".local/share".
    QString homePath() const;
    /// What programs are started with. Changes hold for programs started later.
    QProcessEnvironment& environment() { return m_environment; }
    /// Puts DISPLAY, the bus address, HOME and the XDG folders into this process's environment
    /// too, for product code that reads them.
    void enter();

    DesktopInspector& inspector() { return *m_inspector; }

    /// Starts a program on this desktop; arguments are UTF-8. The desktop owns the process. Check
    /// its state: a program that is missing is not running.
    QProcess& start(const char* program, const QByteArrayList& arguments = {});
    /// Starts the scripted client; tests/desktop/clients/ScriptedClient.cpp lists its options.
    QProcess& startClient(const QByteArrayList& options)
    {
        return start(scriptedClientPath(), options);
    }
    /// Runs a tool such as xdotool to its end and returns its standard output; empty when it
    /// failed.
    QByteArray run(const char* program, const QByteArrayList& arguments) const;

    /// Ends it at once and waits for that.
    static void kill(QProcess& process);

    /// Display 0 is 1600×1024 at (0, 0) and primary, display 1 is 1280×1024 right of it. Each
    /// function waits until the server says so.
    QRect display(int index) const;
    void unplugDisplay(int index);
    void plugDisplay(int index, const QSize& size, const QPoint& position);
    void setPrimaryDisplay(int index);
    /// Gives the display an EDID with that three-letter manufacturer and that model name.
    void nameDisplay(int index, const QByteArray& manufacturer, const QByteArray& model);

    /// The window manager can be ended and another one started while programs run.
    void stopWindowManager();
    bool startWindowManager(WindowManager windowManager);

private:
    void prepareEnvironment();
    bool startServer();
    bool startBus();
    QString logPath(const QProcess& process) const;
    bool fail(const QProcess& process);
    void endPrograms();

    QTemporaryDir m_folder;
    QProcessEnvironment m_environment;
    QByteArray m_displayName;
    QString m_error;
    std::unique_ptr<DesktopInspector> m_inspector;
    std::vector<std::unique_ptr<QProcess>> m_processes;
    QProcess* m_server = nullptr;
    QProcess* m_windowManager = nullptr;
};

} // namespace trovell::lab
