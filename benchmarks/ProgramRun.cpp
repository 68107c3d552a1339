// SPDX-License-Identifier: MIT

#include "ProgramRun.h"

#include "StoreWorkload.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QThread>

#include <csignal>
#include <unistd.h>

namespace trovell::bench {

using namespace Qt::StringLiterals;

namespace {

constexpr int patienceMilliseconds = 20'000;

/// The background of the list of workspaces in the light appearance, which nothing else on the
/// desktop has.
constexpr quint32 sidebarColor = 0xEEEEEB;
constexpr QPoint pointInSidebar(120, 500);

bool waitForPaint(lab::VirtualDesktop& desktop)
{
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < patienceMilliseconds) {
        const auto window = desktop.inspector().windowTitled(u"Trovell");
        if (window && desktop.inspector().pixel(window->id, pointInSidebar) == sidebarColor)
            return true;
        QThread::msleep(1);
    }
    return false;
}

/// One line of a file of the process, as a number.
qint64 number(qint64 process, const QString& file, const QByteArray& key)
{
    QFile source(u"/proc/%1/%2"_s.arg(process).arg(file));
    if (!source.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> lines = source.readAll().split('\n');
    for (const QByteArray& line : lines) {
        if (line.startsWith(key))
            return line.mid(key.size()).simplified().split(' ').first().toLongLong();
    }
    return 0;
}

struct Activity {
    qint64 nanoseconds = 0;
    qint64 wakeUps = 0;
};

/// By thread, as threads come and go.
QHash<QString, Activity> activities(qint64 process)
{
    QHash<QString, Activity> found;
    const QString tasks = u"/proc/%1/task"_s.arg(process);
    const QStringList threads = QDir(tasks).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString& thread : threads) {
        const QString task = u"task/"_s + thread;
        found.insert(thread, {number(process, task + u"/schedstat"_s, {}),
                              number(process, task + u"/status"_s, "voluntary_ctxt_switches:")});
    }
    return found;
}

} // namespace

bool prepareHome(const lab::VirtualDesktop& desktop, int workspaceCount)
{
    const QString data = desktop.homePath() + u"/.local/share/trovell"_s;
    QDir(data).removeRecursively();
    const QString configuration = desktop.homePath() + u"/.config/trovell"_s;
    QDir().mkpath(configuration);
    QFile preferences(configuration + u"/preferences.json"_s);
    return preferences.open(QIODevice::WriteOnly) &&
           preferences.write(R"({"onboarding.completed": true})") > 0 &&
           createStore(data, workspaceCount);
}

bool dropCaches()
{
    ::sync();
    QFile switches(u"/proc/sys/vm/drop_caches"_s);
    return switches.open(QIODevice::WriteOnly) && switches.write("3") == 1 && switches.flush();
}

ProgramRun::ProgramRun(lab::VirtualDesktop& desktop, const char* program) : m_desktop(desktop)
{
    QElapsedTimer clock;
    clock.start();
    m_process = &desktop.start(program);
    if (waitForPaint(desktop))
        m_secondsToPaint = double(clock.nsecsElapsed()) / 1e9;
}

ProgramRun::~ProgramRun()
{
    ::kill(pid_t(m_process->processId()), SIGTERM);
    m_process->waitForFinished();
}

IdleCost ProgramRun::idle(double seconds) const
{
    const auto before = activities(m_process->processId());
    QThread::msleep(ulong(seconds * 1000));
    const auto after = activities(m_process->processId());
    IdleCost cost;
    for (auto thread = after.cbegin(); thread != after.cend(); ++thread) {
        const Activity earlier = before.value(thread.key());
        cost.shareOfCore += double(thread->nanoseconds - earlier.nanoseconds) / 1e9 / seconds;
        cost.wakeUpsPerSecond += double(thread->wakeUps - earlier.wakeUps) / seconds;
    }
    return cost;
}

double ProgramRun::megabytes() const
{
    return double(number(m_process->processId(), u"smaps_rollup"_s, "Pss:")) / 1e3;
}

void ProgramRun::closeMainWindow()
{
    lab::DesktopInspector& inspector = m_desktop.inspector();
    if (const auto window = inspector.windowTitled(u"Trovell"))
        inspector.close(window->id);
    lab::waitUntil([&] { return !inspector.windowTitled(u"Trovell"); });
}

} // namespace trovell::bench
