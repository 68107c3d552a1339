// SPDX-License-Identifier: MIT

#include "platform/x11/X11WindowHandle.h"

#include <QFile>

#include <algorithm>
#include <ctime>
#include <unistd.h>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

using Tenths = std::chrono::duration<quint32, std::deci>;

// From the lowest bit on: the window, when it appeared, its kind, whether it has a modern title.
constexpr int windowBits = 32;
/// Ten months of tenths of a second; an older window counts as young for two seconds once more.
constexpr int stampBits = 28;
constexpr int kindBits = 2;
constexpr int kindShift = windowBits + stampBits;
constexpr int titleShift = kindShift + kindBits;
constexpr quint32 stampMask = (1u << stampBits) - 1;

/// Never 0, which stands for an old window.
quint32 stampOf(X11WindowHandle::Time time)
{
    const auto stamp = std::chrono::duration_cast<Tenths>(time.time_since_epoch()).count();
    return std::max<quint32>(stamp & stampMask, 1);
}

/// Clock ticks since the system started (proc(5), field 22 of stat); negative when unknown.
double startOfProcess(qint32 processIdentifier)
{
    QFile stat(u"/proc/%1/stat"_s.arg(processIdentifier));
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

WindowHandle packedHandle(const X11WindowHandle& handle)
{
    const quint32 stamp = handle.firstSeen ? stampOf(*handle.firstSeen) : 0;
    return static_cast<WindowHandle>(handle.hasUnicodeTitle) << titleShift |
           static_cast<WindowHandle>(handle.kind) << kindShift |
           static_cast<WindowHandle>(stamp) << windowBits | handle.window;
}

quint32 windowOfHandle(WindowHandle handle)
{
    return static_cast<quint32>(handle & 0xffffffff);
}

WindowKind kindOfHandle(WindowHandle handle)
{
    return static_cast<WindowKind>(handle >> kindShift & ((1u << kindBits) - 1));
}

bool hasUnicodeTitle(WindowHandle handle)
{
    return (handle >> titleShift & 1) != 0;
}

bool isYoung(WindowHandle handle, X11WindowHandle::Time now)
{
    const auto stamp = static_cast<quint32>(handle >> windowBits) & stampMask;
    const quint32 age = (stampOf(now) - stamp) & stampMask;
    return stamp != 0 && age < std::chrono::duration_cast<Tenths>(youth).count();
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
