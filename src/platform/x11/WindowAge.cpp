#include "platform/x11/WindowAge.h"

#include <QFile>

#include <algorithm>
#include <ctime>
#include <unistd.h>

namespace trovell {

namespace {

using Time = std::chrono::steady_clock::time_point;
/// Fine enough for two seconds, and 32 bits of them last for thirteen years.
using Tenths = std::chrono::duration<quint32, std::deci>;

constexpr int windowBits = 32;

/// Never 0, which stands for an old window.
quint32 stampOf(Time time)
{
    const auto stamp = std::chrono::duration_cast<Tenths>(time.time_since_epoch()).count();
    return std::max<quint32>(stamp, 1);
}

/// Clock ticks since the system started (proc(5), field 22 of stat); negative when unknown.
double startOfProcess(qint32 processIdentifier)
{
    QFile stat(u"/proc/%1/stat"_qs.arg(processIdentifier));
    if (!stat.open(QIODevice::ReadOnly))
        return -1;
    // The program's name stands in brackets and may hold anything, also blanks and brackets.
    const QByteArray text = stat.readAll();
    constexpr qsizetype startTime = 22 - 3;
    const QByteArray ticks =
        text.mid(text.lastIndexOf(')') + 2).split(' ').value(startTime, QByteArray("-1"));
    return ticks.toDouble() / static_cast<double>(sysconf(_SC_CLK_TCK));
}

} // namespace

WindowHandle handleOfOldWindow(quint32 window)
{
    return window;
}

WindowHandle handleOfNewWindow(quint32 window, Time firstSeen)
{
    return static_cast<WindowHandle>(stampOf(firstSeen)) << windowBits | window;
}

quint32 windowOfHandle(WindowHandle handle)
{
    return static_cast<quint32>(handle & 0xffffffff);
}

bool isYoung(WindowHandle handle, Time now)
{
    const auto stamp = static_cast<quint32>(handle >> windowBits);
    return stamp != 0 && stampOf(now) - stamp < std::chrono::duration_cast<Tenths>(youth).count();
}

bool isYoungProcess(qint32 processIdentifier)
{
    const double start = startOfProcess(processIdentifier);
    timespec now = {};
    clock_gettime(CLOCK_BOOTTIME, &now);
    return start >= 0 &&
           static_cast<double>(now.tv_sec) - start < static_cast<double>(youth.count());
}

} // namespace trovell
