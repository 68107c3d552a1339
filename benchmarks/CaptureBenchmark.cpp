// SPDX-License-Identifier: MIT

#include "CaptureBenchmark.h"
#include "preferences/AppConfiguration.h"

#include "CrowdedDesktop.h"
#include "PeerProgram.h"
#include "platform/BackEnds.h"
#include "platform/x11/X11WindowSystem.h"
#include "Samples.h"

#include <QCoreApplication>
#include <QCoro/QCoroTask>

namespace trovell::bench {

using namespace Qt::StringLiterals;

namespace {

constexpr int rounds = 41;
constexpr int windowsPerApplication = 5;

qsizetype windowCount(const WindowCaptureService::Capture& capture)
{
    qsizetype count = 0;
    if (capture) {
        for (const CapturedApplication& application : *capture)
            count += application.windows.size();
    }
    return count;
}

qsizetype capturedWindows(const WindowCaptureService& service)
{
    return windowCount(QCoro::waitFor(service.captureApplications({}, false)));
}

/// What a process that was just started needs: connections, desktop files, unknown windows.
qsizetype capturedWindowsFromNothing()
{
    PlatformAdapters adapters =
        backEndFor(sessionFacts()).create(appConfiguration().bundleIdentifier);
    const WindowCaptureService service(*adapters.windowSystem, QCoreApplication::applicationPid());
    return capturedWindows(service);
}

struct RoundTrips {
    int windows = 0;
    int wholeCapture = 0;
};

RoundTrips countRoundTrips(X11WindowSystem& system, const WindowCaptureService& service)
{
    const int begin = system.roundTripCount();
    system.ask({.applications = DesktopQuestion::Applications::all, .windows = true})
        .waitForFinished();
    const int middle = system.roundTripCount();
    (void)capturedWindows(service);
    return {middle - begin, system.roundTripCount() - middle};
}

void reportTimes(Report& report, int windows, const std::vector<Samples>& samples)
{
    const double ratio = medianRatio(samples[1], samples[0]);
    const QString what = u"Capturing %1 windows"_s.arg(windows);
    const QString peer = u"wmctrl -lGxp: "_s + formatSpread(samples[1]);
    report.add({.what = what,
                .trovell = formatSpread(samples[0]),
                .peer = peer,
                .ratio = formatRatio(ratio) + u" faster"_s,
                .budget = u"≥ 10× faster"_s,
                .isMet = ratio >= 10});
    if (windows == 200)
        report.add({.what = what + u", the time itself"_s,
                    .trovell = formatSpread(samples[0]),
                    .budget = u"≤ 15 ms"_s,
                    .isMet = median(samples[0]) <= 0.015});
    report.add({.what = what + u" in a process just started"_s,
                .trovell = formatSpread(samples[2]),
                .peer = peer,
                .ratio = formatRatio(medianRatio(samples[1], samples[2])) + u" faster"_s});
}

void reportRoundTrips(Report& report, int windows, RoundTrips trips)
{
    report.add({.what = u"Waits for the X server, %1 windows"_s.arg(windows),
                .trovell = u"%1 for the windows, %2 for a whole capture"_s.arg(trips.windows)
                               .arg(trips.wholeCapture),
                .budget = u"≤ 2 for the windows"_s,
                .isMet = trips.windows <= 2});
}

void measureWindows(Report& report, CrowdedDesktop& crowd, int windows)
{
    const WindowCaptureService& service = crowd.session().dependencies().windowCapture();
    auto* system = dynamic_cast<X11WindowSystem*>(&crowd.session().windowSystem());
    if (!system)
        return report.fail(u"The X11 adapter"_s);
    bool isWrong = false;
    const auto timed = [&](auto&& capture) {
        return secondsOf([&] { isWrong |= capture() != windows; });
    };
    const auto samples =
        interleave(rounds, {[&] { return timed([&] { return capturedWindows(service); }); },
                            [&] { return runPeer({"wmctrl", "-lGxp"}, isWrong); },
                            [&] { return timed(&capturedWindowsFromNothing); }});
    const QByteArray listed = crowd.desktop().run("wmctrl", {"-lGxp"});
    if (isWrong || listed.count('\n') != windows)
        report.fail(u"Capturing exactly %1 windows"_s.arg(windows));
    reportTimes(report, windows, samples);
    reportRoundTrips(report, windows, countRoundTrips(*system, service));
}

} // namespace

void measureCapture(Report& report)
{
    report.beginSection(
        u"Capture"_s,
        u"WindowCaptureService with the X11 adapter, from the call to the sorted list of "
        "applications, on a connection that is open and knows the applications. wmctrl is "
        "timed "
        "from its start to its exit, its output thrown away. Five windows per application, "
        "openbox. Medians of %1 rounds, quartiles in brackets."_s.arg(rounds));
    CrowdedDesktop crowd;
    if (!crowd.error().isEmpty())
        return report.fail(crowd.error());
    int applications = 0;
    for (const int windows : {10, 50, 200}) {
        const int wanted = windows / windowsPerApplication;
        if (!crowd.openApplications(applications, wanted - applications, windowsPerApplication))
            return report.fail(u"Opening %1 windows"_s.arg(windows));
        applications = wanted;
        measureWindows(report, crowd, windows);
    }
}

} // namespace trovell::bench
