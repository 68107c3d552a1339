#include "support/RunningTrovell.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>

#include <csignal>

namespace trovell::test {

namespace {

using namespace std::chrono_literals;

const QString application = QStringLiteral("trovell");

} // namespace

RunningTrovell::RunningTrovell(VirtualDesktop& desktop) : m_desktop(desktop)
{
    QProcessEnvironment& environment = desktop.environment();
    environment.remove(u"QT_ACCESSIBILITY"_qs);
    environment.insert(u"QT_LINUX_ACCESSIBILITY_ALWAYS_ON"_qs, u"1"_qs);
}

RunningTrovell::~RunningTrovell()
{
    if (isRunning())
        (void)end();
}

void RunningTrovell::setPreferences(const QJsonObject& preferences) const
{
    const QString folder = m_desktop.homePath() + u"/.config/trovell"_qs;
    QDir().mkpath(folder);
    QFile file(folder + u"/preferences.json"_qs);
    if (!file.open(QIODevice::WriteOnly))
        qFatal("the preferences cannot be written");
    file.write(QJsonDocument(preferences).toJson());
}

bool RunningTrovell::start()
{
    m_process = &m_desktop.start(productPath());
    m_tree = std::make_unique<AccessibleTree>(
        m_desktop.environment().value(u"DBUS_SESSION_BUS_ADDRESS"_qs).toLatin1());
    return m_tree->isConnected() && shows(u"frame"_qs, u"Trovell"_qs);
}

bool RunningTrovell::end()
{
    ::kill(pid_t(m_process->processId()), SIGTERM);
    return m_process->waitForFinished(10'000) && m_process->exitStatus() == QProcess::NormalExit &&
           m_process->exitCode() == 0;
}

bool RunningTrovell::isRunning() const
{
    return m_process && m_process->state() == QProcess::Running;
}

std::optional<AccessibleNode> RunningTrovell::find(const QString& role, const QString& name)
{
    return m_tree->waitFor(application, role, name, 10s);
}

bool RunningTrovell::showsNow(const QString& role, const QString& name) const
{
    return m_tree->find(application, role, name).has_value();
}

bool RunningTrovell::shows(const QString& role, const QString& name)
{
    return find(role, name).has_value();
}

bool RunningTrovell::hides(const QString& role, const QString& name)
{
    return waitUntil([&] { return !showsNow(role, name); });
}

QStringList RunningTrovell::names(const QString& role)
{
    QStringList found;
    const QList<AccessibleNode> nodes = m_tree->shown(application);
    for (const AccessibleNode& node : nodes) {
        if (node.role == role)
            found.append(node.name);
    }
    return found;
}

QString RunningTrovell::picture()
{
    QString text;
    const QList<AccessibleNode> nodes = m_tree->shown(application);
    for (const AccessibleNode& node : nodes)
        text += u"%1%2 \"%3\"\n"_qs.arg(QString(node.depth * 2, u' '), node.role, node.name);
    return text;
}

bool RunningTrovell::click(const QString& role, const QString& name)
{
    return clickMiddle(role, name, {"click", "1"});
}

bool RunningTrovell::doubleClick(const QString& role, const QString& name)
{
    return clickMiddle(role, name, {"click", "--repeat", "2", "--delay", "60", "1"});
}

bool RunningTrovell::rightClick(const QString& role, const QString& name)
{
    return clickMiddle(role, name, {"click", "3"});
}

bool RunningTrovell::clickMiddle(const QString& role, const QString& name,
                                 const QByteArrayList& clicks)
{
    std::optional<AccessibleNode> node;
    QRect place;
    // Sheets move while they open: two readings in the same place.
    const bool isReady = waitUntil([&] {
        node = m_tree->find(application, role, name);
        const QRect now = node ? m_tree->extents(*node) : QRect();
        return std::exchange(place, now) == now && node && node->isEnabled;
    });
    if (!isReady) {
        qWarning("not there to be clicked: %s \"%s\"\n%s", qPrintable(role), qPrintable(name),
                 qPrintable(picture()));
        return false;
    }
    const QPoint middle = place.center();
    m_desktop.run("xdotool", QByteArrayList{"mousemove", QByteArray::number(middle.x()),
                                            QByteArray::number(middle.y())} +
                                 clicks);
    return true;
}

void RunningTrovell::type(const QString& text)
{
    m_desktop.run("xdotool", {"type", "--delay", "8", text.toUtf8()});
}

void RunningTrovell::press(const char* keys)
{
    m_desktop.run("xdotool", {"key", keys});
}

} // namespace trovell::test
