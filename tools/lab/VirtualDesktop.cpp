// SPDX-License-Identifier: MIT

#include "lab/VirtualDesktop.h"

#include "lab/MakeEdid.h"
#include "lab/PrivateBus.h"

#include <QRegularExpression>
#include <QStandardPaths>
#include <QTest>

#include <csignal>
#include <sys/prctl.h>

namespace trovell::lab {

using namespace Qt::StringLiterals;

namespace {

using namespace std::chrono_literals;

/// Set for every program of a desktop, so that none of them is missed at its end.
constexpr const char* markerVariable = "TROVELL_TEST_DESKTOP";

constexpr QRect initialDisplays[] = {{0, 0, 1600, 1024}, {1600, 0, 1280, 1024}};

struct Command {
    const char* program;
    QByteArrayList arguments;
};

Command windowManagerCommand(WindowManager windowManager)
{
    static const QHash<WindowManager, Command> commands = {
        {WindowManager::none, {"none", {}}},
        {WindowManager::openbox, {"openbox", {"--sm-disable"}}},
        {WindowManager::xfwm4, {"xfwm4", {"--compositor=off", "--sm-client-disable"}}},
        {WindowManager::metacity, {"metacity", {"--sm-disable"}}},
        {WindowManager::marco, {"marco", {"--no-composite", "--sm-disable"}}},
        {WindowManager::mutter, {"mutter", {"--x11", "--sm-disable"}}},
        {WindowManager::kwin, {"kwin_x11", {"--no-kactivities"}}},
        {WindowManager::icewm, {"icewm", {}}},
        {WindowManager::i3, {"i3", {"-c", TROVELL_I3_CONFIGURATION}}},
    };
    return commands.value(windowManager);
}

/// In a new process: a test that is killed leaves nothing behind. Qt also starts processes with a
/// modifier in a way that the thread sanitizer can follow.
void endWithParent()
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
}

QByteArray outputName(int index)
{
    return "DUMMY" + QByteArray::number(index);
}

QStringList texts(const QByteArrayList& arguments)
{
    QStringList result;
    for (const QByteArray& argument : arguments)
        result.append(QString::fromUtf8(argument));
    return result;
}

/// Waits for the first line of a server's output; empty when the server ended before.
QByteArray firstLine(const QString& path, const QProcess& process)
{
    QByteArray line;
    waitUntil([&] {
        const QByteArray output = readFile(path);
        line = output.left(output.indexOf('\n') + 1).trimmed();
        return !line.isEmpty() || process.state() == QProcess::NotRunning;
    });
    return line;
}

} // namespace

const char* productPath()
{
    return TROVELL_PROGRAM;
}

const char* scriptedClientPath()
{
    return TROVELL_SCRIPTED_CLIENT;
}

const char* windowManagerName(WindowManager windowManager)
{
    return windowManagerCommand(windowManager).program;
}

void addWindowManagerRows(const QList<WindowManager>& rows)
{
    QTest::addColumn<WindowManager>("windowManager");
    for (const WindowManager windowManager : rows)
        QTest::newRow(windowManagerName(windowManager)) << windowManager;
}

VirtualDesktop::VirtualDesktop(WindowManager windowManager)
{
    prepareEnvironment();
    if (!startServer() || !startBus() || !startWindowManager(windowManager))
        return;
    // Some window managers choose the displays' modes anew when they start.
    for (int index = 0; index < 2; ++index) {
        const QRect& wanted = initialDisplays[index];
        if (display(index) != wanted)
            plugDisplay(index, wanted.size(), wanted.topLeft());
    }
}

VirtualDesktop::~VirtualDesktop()
{
    m_inspector.reset();
    endPrograms();
    // Not killed outright: the server removes its lock file.
    m_server->terminate();
    m_server->waitForFinished();
}

QString VirtualDesktop::homePath() const
{
    return m_folder.filePath(u"home"_s);
}

void VirtualDesktop::prepareEnvironment()
{
    m_environment = QProcessEnvironment::systemEnvironment();
    const auto set = [this](const char* name, const QString& value) {
        m_environment.insert(QString::fromLatin1(name), value);
    };
    for (const char* folder : {"home", "home/.config", "home/.local/share", "home/.cache", "logs"})
        QDir(m_folder.path()).mkpath(QString::fromLatin1(folder));
    const QString runtime = m_folder.filePath(u"runtime"_s);
    QDir().mkdir(runtime);
    QFile::setPermissions(runtime, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    set("HOME", homePath());
    set("XDG_CONFIG_HOME", homePath() + u"/.config"_s);
    set("XDG_DATA_HOME", homePath() + u"/.local/share"_s);
    set("XDG_CACHE_HOME", homePath() + u"/.cache"_s);
    set("XDG_RUNTIME_DIR", runtime);
    set("XDG_SESSION_TYPE", u"x11"_s);
    set("DBUS_SESSION_BUS_ADDRESS", u"unix:path="_s + runtime + u"/bus"_s);
    set("LC_ALL", u"C.UTF-8"_s);
    // Nothing is remembered from run to run, and nothing waits for services that are not there.
    set("GSETTINGS_BACKEND", u"memory"_s);
    set("NO_AT_BRIDGE", u"1"_s);
    set("GTK_A11Y", u"none"_s);
    set("GSK_RENDERER", u"cairo"_s);
    set("QT_QPA_PLATFORM", u"xcb"_s);
    set("KWIN_COMPOSE", u"N"_s);
    set(markerVariable, m_folder.path());
    for (const char* name : {"WAYLAND_DISPLAY", "SESSION_MANAGER", "XDG_CURRENT_DESKTOP"})
        m_environment.remove(QString::fromLatin1(name));
}

void VirtualDesktop::enter()
{
    for (const char* name : {"DISPLAY", "HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME",
                             "XDG_CACHE_HOME", "XDG_RUNTIME_DIR", "XDG_SESSION_TYPE",
                             "DBUS_SESSION_BUS_ADDRESS", "QT_QPA_PLATFORM", markerVariable})
        qputenv(name, m_environment.value(QString::fromLatin1(name)).toUtf8());
}

QString VirtualDesktop::logPath(const QProcess& process) const
{
    return m_folder.filePath(u"logs/"_s + process.objectName());
}

QProcess& VirtualDesktop::start(const char* program, const QByteArrayList& arguments)
{
    auto process = std::make_unique<QProcess>();
    process->setObjectName(QString::number(m_processes.size()) + u'-' +
                           QFileInfo(QString::fromUtf8(program)).fileName());
    process->setProcessEnvironment(m_environment);
    process->setWorkingDirectory(homePath());
    // Into a file: a full pipe would stop the program.
    process->setProcessChannelMode(QProcess::MergedChannels);
    process->setStandardOutputFile(logPath(*process));
    process->setChildProcessModifier(endWithParent);
    process->start(QString::fromUtf8(program), texts(arguments));
    process->waitForStarted();
    m_processes.push_back(std::move(process));
    return *m_processes.back();
}

QByteArray VirtualDesktop::run(const char* program, const QByteArrayList& arguments) const
{
    QProcess process;
    process.setProcessEnvironment(m_environment);
    process.setChildProcessModifier(endWithParent);
    process.start(QString::fromUtf8(program), texts(arguments));
    const bool isDone = process.waitForFinished() && process.exitCode() == 0;
    return isDone ? process.readAllStandardOutput() : QByteArray();
}

bool VirtualDesktop::fail(const QProcess& process)
{
    const QByteArray output = readFile(logPath(process));
    m_error = process.program() + u" did not start: "_s + process.errorString() + u'\n' +
              QString::fromLocal8Bit(output.right(2000));
    return false;
}

bool VirtualDesktop::startServer()
{
    // The server picks a free number and writes it once it accepts connections; it closes its
    // standard output first, hence the shell.
    const QString numberPath = m_folder.filePath(u"display"_s);
    m_server = &start("sh", {"-c", R"(exec Xorg -displayfd 7 "$@" 7>"$0")", numberPath.toUtf8(),
                             "-config", TROVELL_SERVER_CONFIGURATION, "-logfile",
                             m_folder.filePath(u"logs/server"_s).toUtf8(), "-nolisten", "tcp",
                             "-noreset", "-novtswitch", "-sharevts"});
    const QByteArray number = firstLine(numberPath, *m_server);
    if (number.isEmpty())
        return fail(*m_server);
    m_displayName = ':' + number;
    m_environment.insert(u"DISPLAY"_s, QString::fromLatin1(m_displayName));
    m_inspector = std::make_unique<DesktopInspector>(m_displayName);
    return m_inspector->root() != 0 || fail(*m_server);
}

bool VirtualDesktop::startBus()
{
    const QString services = homePath() + u"/.local/share/dbus-1/services"_s;
    QDir().mkpath(services);
    // Programs are worked through their accessible tree, and some are started over the bus.
    for (const char* name : {"org.a11y.Bus", "org.gnome.TextEditor"}) {
        const QString file = u"/%1.service"_s.arg(QString::fromLatin1(name));
        QFile::link(u"/usr/share/dbus-1/services"_s + file, services + file);
    }
    const QString configuration =
        privateBus(m_folder.filePath(u"bus.conf"_s), m_folder.filePath(u"runtime/bus"_s), services);
    QProcess& bus = start("dbus-daemon",
                          {configuration.toUtf8(), "--nofork", "--nopidfile", "--print-address=1"});
    return !firstLine(logPath(bus), bus).isEmpty() || fail(bus);
}

bool VirtualDesktop::startWindowManager(WindowManager windowManager)
{
    if (windowManager == WindowManager::none)
        return true;
    const Command command = windowManagerCommand(windowManager);
    m_windowManager = &start(command.program, command.arguments);
    const auto runs = [this] { return m_windowManager->state() == QProcess::Running; };
    return m_inspector->waitForManagement(runs) || fail(*m_windowManager);
}

void VirtualDesktop::stopWindowManager()
{
    if (m_windowManager)
        kill(*m_windowManager);
    m_windowManager = nullptr;
}

void VirtualDesktop::endPrograms()
{
    const QByteArray marker = QByteArray(markerVariable) + '=' + m_folder.path().toUtf8();
    for (const QString& entry : QDir(u"/proc"_s).entryList(QDir::Dirs)) {
        const auto identifier = static_cast<pid_t>(entry.toInt());
        if (identifier > 0 && identifier != m_server->processId() &&
            readFile(u"/proc/"_s + entry + u"/environ"_s).split('\0').contains(marker))
            ::kill(identifier, SIGKILL);
    }
    for (const auto& process : m_processes) {
        if (process.get() != m_server)
            process->waitForFinished();
    }
}

void VirtualDesktop::kill(QProcess& process)
{
    process.kill();
    process.waitForFinished();
}

QRect VirtualDesktop::display(int index) const
{
    const QString list = QString::fromLatin1(run("xrandr", {"--listactivemonitors"}));
    const QRegularExpression monitor(
        QString::fromLatin1(R"( (\d+)/\d+x(\d+)/\d+\+(\d+)\+(\d+)  %1\n)")
            .arg(QString::fromLatin1(outputName(index))));
    const QRegularExpressionMatch match = monitor.match(list);
    const auto number = [&](int group) { return match.captured(group).toInt(); };
    return match.hasMatch() ? QRect(number(3), number(4), number(1), number(2)) : QRect();
}

void VirtualDesktop::unplugDisplay(int index)
{
    run("xrandr", {"--output", outputName(index), "--off"});
}

void VirtualDesktop::plugDisplay(int index, const QSize& size, const QPoint& position)
{
    const auto pair = [](int first, int second) {
        return QByteArray::number(first) + 'x' + QByteArray::number(second);
    };
    run("xrandr", {"--output", outputName(index), "--mode", pair(size.width(), size.height()),
                   "--pos", pair(position.x(), position.y())});
}

void VirtualDesktop::setPrimaryDisplay(int index)
{
    run("xrandr", {"--output", outputName(index), "--primary"});
}

void VirtualDesktop::nameDisplay(int index, const QByteArray& manufacturer, const QByteArray& model)
{
    m_inspector->setEdid(index, makeEdid(manufacturer, model));
}

} // namespace trovell::lab
