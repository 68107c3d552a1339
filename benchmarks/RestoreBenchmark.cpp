// SPDX-License-Identifier: MIT

#include "RestoreBenchmark.h"

#include "MoveWatcher.h"
#include "PeerProgram.h"
#include "RestoreWorkload.h"
#include "Samples.h"
#include "support/SystemClock.h"

#include <QCoro/QCoroTask>

#include <algorithm>

namespace trovell::bench {

using namespace Qt::StringLiterals;

namespace {

constexpr int rounds = 15;
constexpr int windowCount = 200;

/// What a contestant left behind in all rounds.
struct Outcome {
    /// From the contestant's end until no window moved any more.
    Samples restSeconds;
    Exactness worst = {windowCount, 0};
    /// Windows that the product gave up on, in all rounds.
    int refusals = 0;
};

class Contest {
public:
    Contest(CrowdedDesktop& crowd, int applications, Spread spread)
        : m_workload(crowd, applications, windowCount / applications, spread),
          m_watcher(crowd.desktop().displayName(), m_workload.windows()),
          m_blindConnection(crowd.desktop().displayName()),
          m_service(crowd.session().windowSystem(), m_clock)
    {
    }

    bool isComplete() const { return m_workload.windows().size() == windowCount; }
    bool hasFailed() const { return m_hasFailed; }

    double runTrovell(Outcome& outcome)
    {
        const auto groups = m_workload.placements(nextLayout());
        return finish(outcome, secondsOf([&] { outcome.refusals += restore(groups); }));
    }

    double runXdotool(Outcome& outcome)
    {
        const QByteArrayList command = m_workload.xdotoolCommand(nextLayout());
        return finish(outcome, runPeer(command, m_hasFailed));
    }

    double runBlindly(Outcome& outcome)
    {
        const int layout = nextLayout();
        return finish(outcome,
                      secondsOf([&] { m_workload.sendBlindly(m_blindConnection, layout); }));
    }

    double runWmctrl(Outcome& outcome)
    {
        const QList<QByteArrayList> commands = m_workload.wmctrlCommands(nextLayout());
        return finish(outcome, secondsOf([&] {
                          for (const QByteArrayList& command : commands)
                              runPeer(command, m_hasFailed);
                      }));
    }

private:
    int nextLayout() { return m_layout = 1 - m_layout; }

    /// As the launcher does it: the passes of all applications are under way together. Returns how
    /// many windows were not restored.
    int restore(const QList<QList<WindowPlacementSnapshot>>& groups)
    {
        int refusals = 0;
        std::vector<QCoro::Task<WindowRestoreAttempt>> passes;
        for (const QList<WindowPlacementSnapshot>& placements : groups)
            passes.push_back(m_service.restorePlacements(placements));
        for (QCoro::Task<WindowRestoreAttempt>& pass : passes) {
            const WindowRestoreAttempt attempt = QCoro::waitFor(pass);
            refusals += static_cast<int>(attempt.retryableDetails.size());
            refusals += static_cast<int>(
                std::ranges::count_if(attempt.completed, [](const LaunchResult& result) {
                    return result.kind != LaunchResultKind::restored;
                }));
        }
        return refusals;
    }

    double finish(Outcome& outcome, double seconds)
    {
        outcome.restSeconds.push_back(seconds + m_watcher.waitForRest());
        const Exactness exactness = m_workload.exactness(m_layout);
        outcome.worst.exact = std::min(outcome.worst.exact, exactness.exact);
        outcome.worst.worst = std::max(outcome.worst.worst, exactness.worst);
        return seconds;
    }

    RestoreWorkload m_workload;
    MoveWatcher m_watcher;
    X11Connection m_blindConnection;
    SystemClock m_clock;
    WindowRestoreService m_service;
    int m_layout = 0;
    bool m_hasFailed = false;
};

QString describe(const Exactness& exactness)
{
    const QString count = u"%1 of %2 exact"_s.arg(exactness.exact).arg(windowCount);
    return exactness.worst == 0 ? count : count + u", worst off by %1 px"_s.arg(exactness.worst);
}

struct Race {
    Outcome trovell;
    Outcome xdotool;
    Outcome wmctrl;
    Outcome blind;
    /// To the end of each contestant, in that order.
    std::vector<Samples> seconds;
};

/// From the beginning until no window moved any more.
Samples untilRest(const Outcome& outcome)
{
    // The first round warms up.
    return {outcome.restSeconds.begin() + 1, outcome.restSeconds.end()};
}

Row comparedWith(const QString& what, const Race& race, const QString& peer, const Samples& seconds,
                 bool hasBudget)
{
    const double ratio = medianRatio(race.seconds[0], seconds);
    Row row{.what = what,
            .trovell = formatSpread(race.seconds[0]),
            .peer = peer + formatSpread(seconds),
            .ratio = formatRatio(ratio)};
    if (hasBudget) {
        row.budget = u"≤ 1.3×"_s;
        row.isMet = ratio <= 1.3;
    }
    return row;
}

void reportTimes(Report& report, const QString& what, const Race& race)
{
    // Before a window has moved: its requests are only on their way.
    report.add(comparedWith(what, race, u"one xdotool, to its exit: "_s, race.seconds[1], false));
    report.add(comparedWith(what, race, u"one xdotool, until no window moves any more: "_s,
                            untilRest(race.xdotool), true));
    report.add(comparedWith(what, race,
                            u"the same requests sent blindly, until no window moves "
                            "any more: "_s,
                            untilRest(race.blind), false));
    // Its last move is still under way when the last call returns.
    const Samples wmctrl = untilRest(race.wmctrl);
    const double ratio = medianRatio(wmctrl, race.seconds[0]);
    report.add({.what = what,
                .trovell = formatSpread(race.seconds[0]),
                .peer = u"200 × wmctrl -i -r … -e …, until no window moves any "
                        "more: %1 (to the last one's exit: %2)"_s.arg(
                            formatSpread(wmctrl), formatSpread(race.seconds[2])),
                .ratio = formatRatio(ratio) + u" faster"_s,
                .budget = u"≥ 3× faster"_s,
                .isMet = ratio >= 3});
}

void reportFrames(Report& report, const Race& race)
{
    const QString wmctrl = u"wmctrl: "_s + describe(race.wmctrl.worst);
    const bool hasXdotool = !race.xdotool.restSeconds.empty();
    report.add({.what = u"Frames afterwards, worst round"_s,
                .trovell = describe(race.trovell.worst),
                .peer = hasXdotool ? u"xdotool: %1; "_s.arg(describe(race.xdotool.worst)) + wmctrl
                                   : wmctrl,
                .budget = u"200 of 200"_s,
                .isMet = race.trovell.worst.exact == windowCount});
    report.add({.what = u"Windows reported as refused, all rounds"_s,
                .trovell = QString::number(race.trovell.refusals),
                .budget = u"0"_s,
                .isMet = race.trovell.refusals == 0});
}

void reportDesktopTimes(Report& report, const QString& what, const Race& race,
                        lab::WindowManager windowManager)
{
    const Samples wmctrl = untilRest(race.wmctrl);
    const double ratio = medianRatio(wmctrl, race.seconds[0]);
    // The rest is the window manager's own drawing.
    const double budget = windowManager == lab::WindowManager::openbox ? 2.5 : 3;
    report.add({.what = what,
                .trovell = formatSpread(race.seconds[0]),
                .peer = u"200 × wmctrl -e … and -t … (no states), until no window moves any "
                        "more: "_s +
                        formatSpread(wmctrl),
                .ratio = formatRatio(ratio) + u" faster"_s,
                .budget = u"≥ %1× faster"_s.arg(budget),
                .isMet = ratio >= budget});
}

struct Setting {
    lab::WindowManager windowManager;
    int applications;
    Spread spread;
};

QString nameOf(const Setting& setting)
{
    const QString desktops =
        setting.spread == Spread::fourDesktops ? u" over 4 desktops, 40 maximised"_s : QString();
    return u"%1: 200 windows of %2"_s.arg(
               QLatin1String(lab::windowManagerName(setting.windowManager)),
               setting.applications == 1 ? u"one application"_s
                                         : u"%1 applications"_s.arg(setting.applications)) +
           desktops;
}

void measureSetting(Report& report, const Setting& setting)
{
    const QString what = nameOf(setting);
    CrowdedDesktop crowd(setting.windowManager);
    if (!crowd.error().isEmpty())
        return report.fail(crowd.error());
    const bool isSpread = setting.spread == Spread::fourDesktops;
    if (isSpread)
        crowd.desktop().inspector().setDesktopCount(4);
    if (!crowd.openApplications(0, setting.applications, windowCount / setting.applications))
        return report.fail(u"Opening the windows to restore"_s);
    Contest contest(crowd, setting.applications, setting.spread);
    if (!contest.isComplete())
        return report.fail(u"Finding the windows to restore"_s);
    Race race;
    std::vector<Contestant> contestants = {[&] { return contest.runTrovell(race.trovell); },
                                           [&] { return contest.runXdotool(race.xdotool); },
                                           [&] { return contest.runWmctrl(race.wmctrl); },
                                           [&] { return contest.runBlindly(race.blind); }};
    // The others know nothing of desktops.
    if (isSpread)
        contestants = {contestants[0], contestants[2]};
    race.seconds = interleave(rounds, contestants);
    if (contest.hasFailed())
        report.fail(what + u": some peer failed"_s);
    if (isSpread)
        reportDesktopTimes(report, what, race, setting.windowManager);
    else
        reportTimes(report, what, race);
    reportFrames(report, race);
}

} // namespace

void measureRestore(Report& report)
{
    report.beginSection(
        u"Restore"_s,
        u"WindowRestoreService over 200 windows: read, match, move, and verify until every "
        "frame reads back exactly. Two layouts on two displays alternate, so every pass moves "
        "and resizes every window. The peers get the same frames and do not verify; they are "
        "timed to their exit and until no window moves any more. Afterwards the frames are "
        "read by independent code. Medians of %1 rounds, quartiles in brackets."_s.arg(rounds));
    for (const auto windowManager : {lab::WindowManager::openbox, lab::WindowManager::xfwm4}) {
        for (const int applications : {1, 20})
            measureSetting(report, {windowManager, applications, Spread::oneDesktop});
        measureSetting(report, {windowManager, 20, Spread::fourDesktops});
    }
}

} // namespace trovell::bench
