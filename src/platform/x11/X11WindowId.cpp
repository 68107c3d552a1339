// SPDX-License-Identifier: MIT

#include "platform/x11/X11WindowId.h"

#include <QFile>

#include <ctime>
#include <unistd.h>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

using Tenths = std::chrono::duration<quint64, std::deci>;

// The lower word holds the window and, above it, its process; the higher one holds whether it has
// a modern title and, above that, when it appeared.
constexpr int processShift = 32;
constexpr int stampShift = 1;

quint64 stampOf(X11WindowFacts::Time time)
{
    return std::chrono::duration_cast<Tenths>(time.time_since_epoch()).count();
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

WindowId makeWindowId(const X11WindowFacts& facts)
{
    const quint64 stamp = facts.firstSeen ? stampOf(*facts.firstSeen) : 0;
    const quint64 process = static_cast<quint32>(facts.processIdentifier);
    return {stamp << stampShift | (facts.hasUnicodeTitle ? 1 : 0),
            process << processShift | facts.window};
}

quint32 windowOf(const WindowId& id)
{
    return static_cast<quint32>(id.low());
}

bool hasUnicodeTitle(const WindowId& id)
{
    return (id.high() & 1) != 0;
}

bool isYoung(const WindowId& id, X11WindowFacts::Time now)
{
    const quint64 stamp = id.high() >> stampShift;
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
