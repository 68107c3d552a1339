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

CapturedWindow makeCapturedWindow(const CapturedApplication& application,
                                  const DesktopWindow& window, qint64 index,
                                  const QRectF& storedFrame, const DisplaySnapshot& display)
{
    const bool hasTitle = window.title && !window.title->isEmpty();
    return {QUuid::createUuid(),
            application.bundleIdentifier,
            application.applicationName,
            hasTitle ? window.title : std::nullopt,
            storedRole(),
            storedSubrole(window.kind),
            index,
            storedFrame,
            display};
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
