#include "InterfaceBenchmark.h"

#include "ProgramRun.h"
#include "Samples.h"

#include <QThread>

namespace trovell::bench {

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
};

double startOnce(test::VirtualDesktop& desktop, bool isCold, Report& report)
{
    if (isCold && !dropCaches())
        report.fail(QStringLiteral("Dropping the caches, which needs root"));
    const ProgramRun program(desktop);
    if (!program.secondsToPaint())
        report.fail(QStringLiteral("Starting the program"));
    return program.secondsToPaint().value_or(0);
}

Starts start(test::VirtualDesktop& few, test::VirtualDesktop& many, bool isCold, Report& report)
{
    const auto samples = interleave(rounds, {[&] { return startOnce(few, isCold, report); },
                                             [&] { return startOnce(many, isCold, report); }});
    return {samples[0], samples[1]};
}

void addStarts(Report& report, const Starts& starts, const QString& kind, double budget)
{
    report.add({.what = kind,
                .trovell = formatSpread(starts.few),
                .budget = QStringLiteral("≤ ") + formatSeconds(budget),
                .isMet = median(starts.few) <= budget});
    const double later = median(starts.many) - median(starts.few);
    report.add({.what = kind + QStringLiteral(", 1,000 workspaces"),
                .trovell = formatSpread(starts.many),
                .ratio = formatSeconds(later) + QStringLiteral(" later"),
                .budget = QStringLiteral("≤ 150 ms later"),
                .isMet = later <= 0.150});
}

void addMemory(Report& report, const QString& what, double megabytes, double budget)
{
    report.add({.what = what,
                .trovell = QStringLiteral("%1 MB").arg(megabytes, 0, 'f', 1),
                .budget = QStringLiteral("< %1 MB").arg(budget),
                .isMet = megabytes < budget});
}

void addIdle(Report& report, const QString& what, const IdleCost& cost)
{
    report.add({.what = what,
                .trovell = QStringLiteral("%1 % of one core, %2 wake-ups a second")
                               .arg(100 * cost.shareOfCore, 0, 'f', 3)
                               .arg(cost.wakeUpsPerSecond, 0, 'f', 2),
                .budget = QStringLiteral("< 0.1 %, no wake-ups"),
                .isMet = cost.shareOfCore < 0.001 && cost.wakeUpsPerSecond == 0});
}

} // namespace

void measureInterface(Report& report)
{
    report.beginSection(
        QStringLiteral("The program"),
        QStringLiteral(
            "From the start of the process until its main window stands painted on the "
            "screen (openbox, Xorg with the dummy driver); cold: the system's file cache "
            "dropped before. Medians of %1 starts, quartiles in brackets. Idle: %2 "
            "seconds in which nobody touches it. Memory: proportional set size.")
            .arg(rounds)
            .arg(idleSeconds));
    test::VirtualDesktop few(test::WindowManager::openbox);
    test::VirtualDesktop many(test::WindowManager::openbox);
    if (!few.isReady() || !many.isReady())
        return report.fail(few.error() + many.error());
    if (!prepareHome(few, 3) || !prepareHome(many, manyWorkspaces))
        return report.fail(QStringLiteral("Preparing the stores"));
    addStarts(report, start(few, many, false, report), QStringLiteral("Warm start"), 0.200);
    addStarts(report, start(few, many, true, report), QStringLiteral("Cold start"), 0.350);

    ProgramRun program(few);
    QThread::sleep(settlingSeconds);
    addMemory(report, QStringLiteral("Memory, main window open"), program.megabytes(), 90);
    addIdle(report, QStringLiteral("Idle, main window open"), program.idle(idleSeconds));
    program.closeMainWindow();
    QThread::sleep(settlingSeconds);
    addMemory(report, QStringLiteral("Memory, closed to the tray"), program.megabytes(), 75);
    addIdle(report, QStringLiteral("Idle, closed to the tray"), program.idle(idleSeconds));
}

} // namespace trovell::bench
