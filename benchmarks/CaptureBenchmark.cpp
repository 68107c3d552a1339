#include "CaptureBenchmark.h"
#include "app/AppConfiguration.h"

#include "CrowdedDesktop.h"
#include "PeerProgram.h"
#include "platform/x11/X11WindowSystem.h"
#include "Samples.h"

#include <QCoreApplication>
#include <QCoro/QCoroTask>

namespace trovell::bench {

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
    PlatformAdapters adapters = makePlatformAdapters(appConfiguration().bundleIdentifier);
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
    const QList<RunningApplication> applications = system.runningApplications();
    (void)system.readWindows(applications);
    const int middle = system.roundTripCount();
    (void)capturedWindows(service);
    return {middle - begin, system.roundTripCount() - middle};
}

void reportTimes(Report& report, int windows, const std::vector<Samples>& samples)
{
    const double ratio = medianRatio(samples[1], samples[0]);
    const QString what = QStringLiteral("Capturing %1 windows").arg(windows);
    const QString peer = QStringLiteral("wmctrl -lGxp: ") + formatSpread(samples[1]);
    report.add({.what = what,
                .trovell = formatSpread(samples[0]),
                .peer = peer,
                .ratio = formatRatio(ratio) + QStringLiteral(" faster"),
                .budget = QStringLiteral("≥ 10× faster"),
                .isMet = ratio >= 10});
    if (windows == 200)
        report.add({.what = what + QStringLiteral(", the time itself"),
                    .trovell = formatSpread(samples[0]),
                    .budget = QStringLiteral("≤ 15 ms"),
                    .isMet = median(samples[0]) <= 0.015});
    report.add(
        {.what = what + QStringLiteral(" in a process just started"),
         .trovell = formatSpread(samples[2]),
         .peer = peer,
         .ratio = formatRatio(medianRatio(samples[1], samples[2])) + QStringLiteral(" faster")});
}

void reportRoundTrips(Report& report, int windows, RoundTrips trips)
{
    report.add({.what = QStringLiteral("Waits for the X server, %1 windows").arg(windows),
                .trovell = QStringLiteral("%1 for the windows, %2 for a whole capture")
                               .arg(trips.windows)
                               .arg(trips.wholeCapture),
                .budget = QStringLiteral("≤ 2 for the windows"),
                .isMet = trips.windows <= 2});
}

void measureWindows(Report& report, CrowdedDesktop& crowd, int windows)
{
    const WindowCaptureService& service = crowd.session().dependencies().windowCapture();
    auto* system = dynamic_cast<X11WindowSystem*>(&crowd.session().windowSystem());
    if (!system)
        return report.fail(QStringLiteral("The X11 adapter"));
    bool isWrong = false;
    const auto timed = [&](auto&& capture) {
        return secondsOf([&] { isWrong |= capture() != windows; });
    };
    const auto samples =
        interleave(rounds, {[&] { return timed([&] { return capturedWindows(service); }); },
                            [&] {
                                return runPeer({"wmctrl", "-lGxp"}, isWrong);
                            },
                            [&] { return timed(&capturedWindowsFromNothing); }});
    const QByteArray listed = crowd.desktop().run("wmctrl", {"-lGxp"});
    if (isWrong || listed.count('\n') != windows)
        report.fail(QStringLiteral("Capturing exactly %1 windows").arg(windows));
    reportTimes(report, windows, samples);
    reportRoundTrips(report, windows, countRoundTrips(*system, service));
}

} // namespace

void measureCapture(Report& report)
{
    report.beginSection(
        QStringLiteral("Capture"),
        QStringLiteral(
            "WindowCaptureService with the X11 adapter, from the call to the sorted list of "
            "applications, on a connection that is open and knows the applications. wmctrl is "
            "timed "
            "from its start to its exit, its output thrown away. Five windows per application, "
            "openbox. Medians of %1 rounds, quartiles in brackets.")
            .arg(rounds));
    CrowdedDesktop crowd;
    if (!crowd.error().isEmpty())
        return report.fail(crowd.error());
    int applications = 0;
    for (const int windows : {10, 50, 200}) {
        const int wanted = windows / windowsPerApplication;
        if (!crowd.openApplications(applications, wanted - applications, windowsPerApplication))
            return report.fail(QStringLiteral("Opening %1 windows").arg(windows));
        applications = wanted;
        measureWindows(report, crowd, windows);
    }
}

} // namespace trovell::bench
