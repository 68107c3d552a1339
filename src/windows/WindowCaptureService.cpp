// SPDX-License-Identifier: MIT

#include "windows/WindowCaptureService.h"

#include "display/NormalizedFrame.h"
#include "windows/OrdinaryWindow.h"

#include <QCollator>
#include <QCoro/QCoroFuture>
#include <QtConcurrentRun>

#include <algorithm>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

std::optional<SavedDesktop> savedDesktop(const DesktopWindow& window)
{
    if (window.isOnAllDesktops)
        return SavedDesktop{.isAll = true};
    if (window.virtualDesktop)
        return SavedDesktop{.index = *window.virtualDesktop};
    return std::nullopt;
}

CapturedWindow makeCapturedWindow(const CapturedApplication& application,
                                  const DesktopWindow& window, qint64 index,
                                  const QRectF& storedFrame, const DisplaySnapshot& display)
{
    const bool hasTitle = window.title && !window.title->isEmpty();
    return {.id = QUuid::createUuid(),
            .bundleIdentifier = application.bundleIdentifier,
            .applicationName = application.applicationName,
            .windowTitle = hasTitle ? window.title : std::nullopt,
            .role = storedRole(),
            .subrole = storedSubrole(window.kind),
            .windowIndex = index,
            .frame = storedFrame,
            .display = display,
            .states = window.states,
            .virtualDesktop = savedDesktop(window),
            .stackingIndex = window.stackingPosition < 0
                                 ? std::nullopt
                                 : std::optional<qint64>(window.stackingPosition)};
}

/// The names that desktops had at the time of the capture.
void nameDesktops(QList<CapturedApplication>& applications, const QStringList& names)
{
    for (CapturedApplication& application : applications) {
        for (CapturedWindow& window : application.windows) {
            if (window.virtualDesktop && !window.virtualDesktop->isAll)
                window.virtualDesktop->name = names.value(window.virtualDesktop->index);
        }
    }
}

/// Whether it is for the user to choose, and not the program itself.
bool isOffered(const RunningApplication& application, qint64 ownProcessIdentifier)
{
    return application.processIdentifier != ownProcessIdentifier && application.isRegular &&
           !application.isTerminated && application.bundleIdentifier;
}

void sortByName(QList<CapturedApplication>& applications)
{
    QCollator collator;
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::stable_sort(applications.begin(), applications.end(),
                     [&collator](const auto& a, const auto& b) {
                         return collator.compare(a.applicationName, b.applicationName) < 0;
                     });
}

/// On a worker.
WindowCaptureService::Capture makeCapture(const DesktopSnapshot& desktop,
                                          qint64 ownProcessIdentifier, bool allowEmpty)
{
    if (desktop.control != WindowControl::available)
        return Unexpected(WindowServiceError::accessibilityPermissionMissing);
    const StoredDisplays displays(desktop.displays);
    QList<CapturedApplication> captured;
    for (const RunningApplication& running : desktop.applications) {
        if (!isOffered(running, ownProcessIdentifier))
            continue;
        CapturedApplication application = makeCapturedApplication(running, displays);
        if (!application.windows.isEmpty())
            captured.append(std::move(application));
    }
    nameDesktops(captured, desktop.virtualDesktopNames);
    sortByName(captured);
    if (captured.isEmpty() && !allowEmpty)
        return Unexpected(WindowServiceError::noWindows);
    return captured;
}

} // namespace

CapturedApplication makeCapturedApplication(const RunningApplication& application,
                                            const StoredDisplays& displays)
{
    CapturedApplication captured;
    captured.bundleIdentifier = application.bundleIdentifier.value_or(QString());
    captured.applicationName = application.localizedName.value_or(u"Application"_s);
    captured.applicationURLString = application.bundleURL;
    for (qsizetype index = 0; index < application.windows.size(); ++index) {
        const DesktopWindow& window = application.windows.at(index);
        if (!isOrdinaryWindow(window))
            continue;
        const QRectF frame = displays.storedFrame(*window.frame);
        if (const auto display = displayContaining(frame, displays.snapshots()))
            captured.windows.append(makeCapturedWindow(captured, window, index, frame, *display));
    }
    for (CapturedWindow& window : captured.windows)
        window.hasSiblings = captured.windows.size() > 1;
    return captured;
}

WindowCaptureService::WindowCaptureService(WindowSystem& windowSystem, qint64 ownProcessIdentifier)
    : m_windowSystem(windowSystem), m_ownProcessIdentifier(ownProcessIdentifier)
{
}

QCoro::Task<WindowCaptureService::Capture>
WindowCaptureService::captureApplications(std::optional<QSet<QString>> filter,
                                          bool allowEmpty) const
{
    using Applications = DesktopQuestion::Applications;
    const DesktopQuestion question{.applications = filter ? Applications::named : Applications::all,
                                   .identifiers = filter.value_or(QSet<QString>()),
                                   .windows = true,
                                   .displays = true};
    auto reading = m_windowSystem.ask(question);
    const DesktopSnapshot desktop = co_await reading;
    auto making = QtConcurrent::run(&makeCapture, desktop, m_ownProcessIdentifier, allowEmpty);
    co_return co_await making;
}

QCoro::Task<QList<CapturedApplication>> WindowCaptureService::runningApplications() const
{
    const DesktopQuestion question{.applications = DesktopQuestion::Applications::all,
                                   .withoutWindows = true};
    auto reading = m_windowSystem.ask(question);
    const DesktopSnapshot desktop = co_await reading;
    QList<CapturedApplication> captured;
    for (const RunningApplication& application : desktop.applications) {
        if (isOffered(application, m_ownProcessIdentifier) && !application.isHidden)
            captured.append(makeCapturedApplication(application, StoredDisplays({})));
    }
    co_return captured;
}

} // namespace trovell
