// SPDX-License-Identifier: MIT

#include "support/SwayDesktop.h"

#include "lab/Files.h"
#include "platform/sway/SwayReading.h"
#include "support/Patience.h"

#include <unistd.h>

namespace trovell::test {

using namespace Qt::StringLiterals;

namespace {

/// No picture of the package's is looked for, and nothing of the system's configuration is read.
constexpr QByteArrayView plainDesktop = "xwayland disable\n"
                                        "output * bg #203040 solid_color\n"
                                        "output HEADLESS-1 pos 0 0 mode 1280x720\n"
                                        "output HEADLESS-2 pos 1280 0 mode 1280x720\n"
                                        "workspace 1 output HEADLESS-1\n"
                                        "workspace 2 output HEADLESS-2\n"
                                        "exec swaymsg focus output HEADLESS-1\n"
                                        "focus_follows_mouse no\n";

} // namespace

SwayDesktop::SwayDesktop(const QByteArray& configuration)
    : m_environment(QProcessEnvironment::systemEnvironment())
{
    for (const QString& folder : {runtimeFolder(), m_folder.filePath(u"home"_s)}) {
        QDir().mkpath(folder);
        QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    const QString file = lab::writeFile(m_folder.filePath(u"config"_s),
                                        plainDesktop.toByteArray() + configuration + '\n');
    const QList<std::pair<QString, QString>> variables = {
        {u"XDG_RUNTIME_DIR"_s, runtimeFolder()},
        {u"HOME"_s, m_folder.filePath(u"home"_s)},
        {u"XDG_CONFIG_HOME"_s, m_folder.filePath(u"home/.config"_s)},
        {u"SWAYSOCK"_s, QFile::decodeName(socketPath())},
        {u"WLR_BACKENDS"_s, u"headless"_s},
        {u"WLR_RENDERER"_s, u"pixman"_s},
        {u"WLR_LIBINPUT_NO_DEVICES"_s, u"1"_s},
        {u"WLR_HEADLESS_OUTPUTS"_s, u"2"_s},
        {u"DBUS_SESSION_BUS_ADDRESS"_s, u"disabled:"_s},
        {u"LC_ALL"_s, u"C.UTF-8"_s}};
    for (const auto& [name, value] : variables)
        m_environment.insert(name, value);
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "I3SOCK"})
        m_environment.remove(QString::fromLatin1(name));
    // The name that the first compositor of a runtime folder takes.
    const QStringList sway{u"setpriv"_s, u"--pdeathsig"_s, u"KILL"_s, u"sway"_s, u"-c"_s, file};
    const QStringList asSomebody{u"unshare"_s, u"--user"_s, u"--map-user=1000"_s,
                                 u"--map-group=1000"_s};
    const QStringList command = ::geteuid() == 0 ? asSomebody + sway : sway;
    const QProcess& process = start(command.first(), command.mid(1));
    m_environment.insert(u"WAYLAND_DISPLAY"_s, u"wayland-1"_s);
    (void)QTest::qWaitFor(
        [&] {
            m_connection = std::make_unique<SwayConnection>(socketPath());
            const auto tree = readSwayTree(*m_connection);
            return (tree && tree->displays.size() == 2) || process.state() != QProcess::Running;
        },
        patience);
}

SwayDesktop::~SwayDesktop()
{
    while (!m_processes.empty()) {
        m_processes.back()->kill();
        m_processes.back()->waitForFinished();
        m_processes.pop_back();
    }
}

QByteArray SwayDesktop::log() const
{
    return lab::readFile(m_folder.filePath(u"0.log"_s));
}

QByteArray SwayDesktop::socketPath() const
{
    return QFile::encodeName(runtimeFolder() + u"/sway.sock"_s);
}

QProcess& SwayDesktop::start(const QString& program, const QStringList& arguments)
{
    auto process = std::make_unique<QProcess>();
    process->setProcessEnvironment(m_environment);
    process->setProcessChannelMode(QProcess::MergedChannels);
    process->setStandardOutputFile(m_folder.filePath(u"%1.log"_s.arg(m_processes.size())));
    process->start(program, arguments);
    process->waitForStarted();
    m_processes.push_back(std::move(process));
    return *m_processes.back();
}

QProcess& SwayDesktop::openWindow(const QString& title)
{
    const auto isThere = [&] {
        const auto tree = readSwayTree(*m_connection);
        return tree &&
               std::ranges::find(tree->windows, title, &SwayWindow::title) != tree->windows.end();
    };
    QProcess& process = start(u"foot"_s, {u"-c"_s, u"/dev/null"_s, u"-a"_s, title, u"-T"_s, title,
                                          u"sleep"_s, u"1000"_s});
    (void)QTest::qWaitFor(isThere, patience);
    return process;
}

bool SwayDesktop::run(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.setProcessEnvironment(m_environment);
    process.start(program, arguments);
    return process.waitForFinished() && process.exitCode() == 0;
}

void SwayDesktop::kill()
{
    m_processes.front()->kill();
    m_processes.front()->waitForFinished();
}

} // namespace trovell::test
