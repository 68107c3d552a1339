// SPDX-License-Identifier: MIT

#include "support/RunningTrovell.h"

#include "lab/Files.h"

#include <QJsonDocument>

#include <csignal>

namespace trovell::test {

using namespace lab;

using namespace Qt::StringLiterals;

using namespace std::chrono_literals;

RunningTrovell::RunningTrovell(VirtualDesktop& desktop) : m_desktop(desktop)
{
    QProcessEnvironment& environment = desktop.environment();
    environment.remove(u"QT_ACCESSIBILITY"_s);
    environment.insert(u"QT_LINUX_ACCESSIBILITY_ALWAYS_ON"_s, u"1"_s);
}

RunningTrovell::~RunningTrovell()
{
    if (isRunning())
        (void)end();
}

void RunningTrovell::setPreferences(const QJsonObject& preferences) const
{
    writeFile(m_desktop.homePath() + u"/.config/trovell/preferences.json"_s,
              QJsonDocument(preferences).toJson());
}

bool RunningTrovell::start()
{
    m_process = &m_desktop.start(productPath());
    m_tree = std::make_unique<AccessibleTree>(
        m_desktop.environment().value(u"DBUS_SESSION_BUS_ADDRESS"_s).toLatin1());
    return m_tree->isConnected() && shows(u"frame"_s, u"Trovell"_s);
}

bool RunningTrovell::end()
{
    ::kill(pid_t(m_process->processId()), SIGTERM);
    return ends();
}

bool RunningTrovell::ends()
{
    return m_process->waitForFinished(10'000) && m_process->exitStatus() == QProcess::NormalExit &&
           m_process->exitCode() == 0;
}

std::optional<AccessibleNode> RunningTrovell::find(const QString& role, const QString& name)
{
    return m_tree->waitFor(application, role, name, 10s);
}

QString RunningTrovell::picture()
{
    QString text;
    const QList<AccessibleNode> nodes = m_tree->shown(application);
    for (const AccessibleNode& node : nodes)
        text += u"%1%2 \"%3\"\n"_s.arg(QString(node.depth * 2, u' '), node.role, node.name);
    return text;
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

} // namespace trovell::test
