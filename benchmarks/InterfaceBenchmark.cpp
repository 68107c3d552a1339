// SPDX-License-Identifier: MIT

#include "InterfaceBenchmark.h"

#include "ProgramRun.h"
#include "Samples.h"

#include <QThread>

namespace trovell::bench {

using namespace Qt::StringLiterals;

namespace {

constexpr int rounds = 9;
constexpr int manyWorkspaces = 1000;
constexpr double idleSeconds = 20;
/// Until the tray, the icons and what else comes later have come, and until the toolkit's own
/// workers and caches have ended, which they do after up to half a minute without work.
constexpr ulong settlingSeconds = 40;

struct Starts {
    Samples few;
    Samples many;
    /// An empty window of the same toolkit, started the same way.
    Samples empty;
};

double startOnce(lab::VirtualDesktop& desktop, bool isCold, Report& report,
                 const char* path = lab::productPath())
{
    if (isCold && !dropCaches())
        report.fail(u"Dropping the caches, which needs root"_s);
    const ProgramRun program(desktop, path);
    if (!program.secondsToPaint())
        report.fail(u"Starting the program"_s);
    return program.secondsToPaint().value_or(0);
}

Starts start(lab::VirtualDesktop& few, lab::VirtualDesktop& many, bool isCold, Report& report)
{
    const auto samples =
        interleave(rounds, {[&] { return startOnce(few, isCold, report); },
                            [&] { return startOnce(many, isCold, report); },
                            [&] { return startOnce(few, isCold, report, TROVELL_EMPTY_WINDOW); }});
    return {samples[0], samples[1], samples[2]};
}

void addStarts(Report& report, const Starts& starts, const QString& kind, double budget)
{
    report.add({.what = kind,
                .trovell = formatSpread(starts.few),
                .budget = u"≤ "_s + formatSeconds(budget),
                .isMet = median(starts.few) <= budget});
    const double ratio = medianRatio(starts.few, starts.empty);
    report.add({.what = kind + u", beside an empty window"_s,
                .trovell = formatSpread(starts.few),
                .peer = u"one empty Qt Widgets window: "_s + formatSpread(starts.empty),
                .ratio = formatRatio(ratio),
                .budget = u"≤ 1.5×"_s,
                .isMet = ratio <= 1.5});
    const double later = median(starts.many) - median(starts.few);
    report.add({.what = kind + u", 1,000 workspaces"_s,
                .trovell = formatSpread(starts.many),
                .ratio = formatSeconds(later) + u" later"_s,
                .budget = u"≤ 150 ms later"_s,
                .isMet = later <= 0.150});
}

void addMemory(Report& report, const QString& what, double megabytes, double budget)
{
    report.add({.what = what,
                .trovell = u"%1 MB"_s.arg(megabytes, 0, 'f', 1),
                .budget = u"< %1 MB"_s.arg(budget),
                .isMet = megabytes < budget});
}

void addIdle(Report& report, const QString& what, const IdleCost& cost)
{
    report.add({.what = what,
                .trovell = u"%1 % of one core, %2 wake-ups a second"_s
                               .arg(100 * cost.shareOfCore, 0, 'f', 3)
                               .arg(cost.wakeUpsPerSecond, 0, 'f', 2),
                .budget = u"< 0.1 %, no wake-ups"_s,
                .isMet = cost.shareOfCore < 0.001 && cost.wakeUpsPerSecond == 0});
}

} // namespace

void measureInterface(Report& report)
{
    report.beginSection(
        u"The program"_s,
        u"From the start of the process until its main window stands painted on the "
        "screen (openbox, Xorg with the dummy driver); cold: the system's file cache "
        "dropped before. Medians of up to %1 starts, quartiles in brackets. Idle: %2 "
        "seconds in which nobody touches it. Memory: proportional set size."_s.arg(rounds)
            .arg(idleSeconds));
    lab::VirtualDesktop few(lab::WindowManager::openbox);
    lab::VirtualDesktop many(lab::WindowManager::openbox);
    if (!few.isReady() || !many.isReady())
        return report.fail(few.error() + many.error());
    if (!prepareHome(few, 3) || !prepareHome(many, manyWorkspaces))
        return report.fail(u"Preparing the stores"_s);
    addStarts(report, start(few, many, false, report), u"Warm start"_s, 0.200);
    addStarts(report, start(few, many, true, report), u"Cold start"_s, 0.350);

    ProgramRun program(few);
    QThread::sleep(settlingSeconds);
    addMemory(report, u"Memory, main window open"_s, program.megabytes(), 90);
    addIdle(report, u"Idle, main window open"_s, program.idle(idleSeconds));
    program.closeMainWindow();
    QThread::sleep(settlingSeconds);
    addMemory(report, u"Memory, closed to the tray"_s, program.megabytes(), 75);
    addIdle(report, u"Idle, closed to the tray"_s, program.idle(idleSeconds));
}

} // namespace trovell::bench
