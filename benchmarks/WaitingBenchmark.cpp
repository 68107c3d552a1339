// SPDX-License-Identifier: MIT

#include "WaitingBenchmark.h"

#include "CrowdedDesktop.h"
#include "ProcessorTime.h"
#include "Samples.h"

#include <QCoro/QCoroTask>

namespace trovell::bench {

using namespace Qt::StringLiterals;

namespace {

constexpr int applicationCount = 20;
constexpr int windowsEach = 10;
constexpr double waitSeconds = 8;
constexpr int rounds = 3;
constexpr double budgetShare = 0.03;

/// Placements for windows with titles that no window has.
std::unique_ptr<TrovellWorkspace> makeWorkspace(int firstApplication)
{
    auto workspace = std::make_unique<TrovellWorkspace>(WorkspaceValues());
    for (int application = 0; application < applicationCount; ++application) {
        for (int window = 0; window < windowsEach; ++window) {
            const auto title = u"Zzyzx %1 qwrt"_s.arg(window);
            workspace->appendPlacement(std::make_unique<WindowPlacement>(
                CrowdedDesktop::bundleIdentifier(firstApplication + application), u"Application"_s,
                title, u"AXWindow"_s, u"AXStandardWindow"_s, window,
                NormalizedFrame{0, 0, 0.5, 0.5}, QRectF(0, 0, 800, 500), fallbackFingerprint(),
                true));
        }
    }
    return workspace;
}

/// Processor time per second of waiting, as shares of one core.
struct Shares {
    Samples ownProcess;
    Samples server;
};

bool wait(WorkspaceLauncher& launcher, TrovellWorkspace& workspace, pid_t server, Shares& shares)
{
    const double ownBefore = ownProcessorSeconds();
    const double serverBefore = processorSeconds(server);
    const double seconds =
        secondsOf([&] { QCoro::waitFor(launcher.start(&workspace, true, waitSeconds)); });
    shares.ownProcess.push_back((ownProcessorSeconds() - ownBefore) / seconds);
    shares.server.push_back((processorSeconds(server) - serverBefore) / seconds);
    const QList<LaunchResult> results = launcher.latestReport()->results;
    return seconds >= waitSeconds && results.size() == applicationCount * windowsEach &&
           std::ranges::all_of(results, [](const LaunchResult& result) {
               return result.kind == LaunchResultKind::timedOut;
           });
}

QString percent(const Samples& shares)
{
    return u"%1 % of one core"_s.arg(100 * median(shares), 0, 'f', 2);
}

void measureVariant(Report& report, CrowdedDesktop& crowd, const QString& what,
                    int firstApplication)
{
    const auto workspace = makeWorkspace(firstApplication);
    const pid_t server = serverProcess(crowd.desktop().displayName());
    Shares shares;
    for (int round = 0; round < rounds; ++round) {
        if (!wait(crowd.session().dependencies().launcher(), *workspace, server, shares))
            report.fail(what);
    }
    report.add({.what = what,
                .trovell = percent(shares.ownProcess),
                .peer = u"the X server meanwhile: "_s + percent(shares.server),
                .budget = u"< 3 %"_s,
                .isMet = median(shares.ownProcess) < budgetShare});
}

} // namespace

void measureWaiting(Report& report)
{
    report.beginSection(
        u"Waiting"_s,
        u"A start of a workspace with 20 applications of 10 placements, none of which "
        "appears within its timeout of %1 seconds, on a desktop with 200 windows: "
        "processor time of the whole process, medians of %2 starts."_s.arg(waitSeconds)
            .arg(rounds));
    CrowdedDesktop crowd;
    if (!crowd.error().isEmpty())
        return report.fail(crowd.error());
    if (!crowd.openApplications(0, applicationCount, windowsEach))
        return report.fail(u"Opening the windows to wait beside"_s);
    measureVariant(report, crowd, u"Applications that do not run"_s, applicationCount);
    measureVariant(report, crowd, u"Applications with 10 other windows each"_s, 0);
}

} // namespace trovell::bench
