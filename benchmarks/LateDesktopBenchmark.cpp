// SPDX-License-Identifier: MIT

#include "LateDesktopBenchmark.h"

#include "launch/WorkspaceLauncher.h"
#include "model/TrovellWorkspace.h"
#include "model/WindowPlacement.h"
#include "Samples.h"
#include "support/FakeResourceSystem.h"
#include "support/LateWindowSystem.h"
#include "support/SystemClock.h"
#include "Titles.h"
#include "windows/WindowCaptureService.h"

#include <QCoreApplication>
#include <QCoro/QCoroTask>

#include <algorithm>

namespace trovell::bench {

using namespace Qt::StringLiterals;

namespace {

constexpr int applicationCount = 20;
constexpr int windowsEach = 10;
constexpr int rounds = 11;

struct Desktop {
    FakeWindowSystem windows;
    LateWindowSystem late{windows};
    SystemClock clock;
    FakeResourceSystem resources;
    ResourceOpeningService opener{borrowed(resources),
                                  [](const QString&, bool) { return QFuture<bool>(); }};
    WindowCaptureService capture{late, 1};
    WindowRestoreService restorer{late, clock};
    WorkspaceLauncher launcher{opener, restorer, late, clock};
    TrovellWorkspace workspace{WorkspaceValues()};

    Desktop()
    {
        for (int index = 0; index < applicationCount * windowsEach; ++index)
            windows.addWindow(u"org.example.Application%1"_s.arg(index % applicationCount),
                              {.title = realisticTitle(index)});
    }
};

/// Seconds of the longest turn of the event loop, the call itself included, until the task ends.
template <class Start> double longestTurn(Start start)
{
    const auto timed = [](auto&& call) { return secondsOf(call); };
    decltype(start()) task;
    double longest = timed([&] { task = start(); });
    while (!task.isReady())
        longest = std::max(longest, timed([] { QCoreApplication::processEvents(); }));
    return longest;
}

void addRow(Report& report, const QString& what, const Samples& turns)
{
    constexpr double budget = 0.008;
    report.add({.what = u"Longest turn of the event loop while "_s + what,
                .trovell = formatSpread(turns),
                .budget = u"≤ 8 ms"_s,
                .isMet = median(turns) <= budget});
}

} // namespace

void measureLateDesktop(Report& report)
{
    report.beginSection(
        u"A late desktop"_s,
        u"Capture and start of a workspace with 200 windows of 20 applications on a scripted "
        u"desktop "
        "that answers every question after 50 ms. Medians of %1 rounds."_s.arg(rounds));
    Desktop desktop;
    const auto captured = QCoro::waitFor(desktop.capture.captureApplications({}, false));
    if (!captured)
        return report.fail(u"Capturing a late desktop"_s);
    for (const CapturedApplication& application : *captured) {
        for (const CapturedWindow& window : application.windows)
            desktop.workspace.appendPlacement(makePlacement(window));
    }
    Samples capturing;
    Samples starting;
    for (int round = 0; round < rounds; ++round) {
        capturing.push_back(
            longestTurn([&] { return desktop.capture.captureApplications({}, false); }));
        starting.push_back(
            longestTurn([&] { return desktop.launcher.start(&desktop.workspace, true, 5); }));
    }
    const QList<LaunchResult> results = desktop.launcher.latestReport()->results;
    if (std::ranges::count(results, LaunchResultKind::restored, &LaunchResult::kind) !=
        applicationCount * windowsEach)
        report.fail(u"Restoring 200 windows on a late desktop"_s);
    addRow(report, u"capturing"_s, capturing);
    addRow(report, u"starting"_s, starting);
}

} // namespace trovell::bench
