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
                                  const WindowAttributes& window, qint64 index,
                                  const QRectF& screenFrame, const DisplaySnapshot& display)
{
    const bool hasTitle = window.title && !window.title->isEmpty();
    return {QUuid::createUuid(),
            application.bundleIdentifier,
            application.applicationName,
            hasTitle ? window.title : std::nullopt,
            window.role,
            window.subrole,
            index,
            screenFrame,
            display};
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

QList<CapturedApplication> captureWindows(const WindowSystem* windowSystem,
                                          const QList<RunningApplication>& applications,
                                          const QList<DisplaySnapshot>& displays)
{
    const QList<QList<WindowAttributes>> windows = windowSystem->readWindows(applications);
    QList<CapturedApplication> captured;
    for (qsizetype index = 0; index < applications.size(); ++index) {
        CapturedApplication application =
            makeCapturedApplication(applications.at(index), windows.value(index), displays);
        if (!application.windows.isEmpty())
            captured.append(std::move(application));
    }
    sortByName(captured);
    return captured;
}

} // namespace

CapturedApplication makeCapturedApplication(const RunningApplication& application,
                                            const QList<WindowAttributes>& windows,
                                            const QList<DisplaySnapshot>& displays)
{
    CapturedApplication captured;
    captured.bundleIdentifier = application.bundleIdentifier.value_or(QString());
    captured.applicationName = application.localizedName.value_or(u"Application"_s);
    captured.applicationURLString = application.bundleURL;
    const QRectF mainFrame = mainDisplayFrame(displays);
    for (qsizetype index = 0; index < windows.size(); ++index) {
        const WindowAttributes& window = windows.at(index);
        if (!isOrdinaryWindow(window))
            continue;
        const QRectF frame = screenFrameFromAccessibility(*readWindowFrame(window), mainFrame);
        if (const auto display = displayContaining(frame, displays))
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
    if (!m_windowSystem.isTrusted())
        co_return Unexpected(WindowServiceError::accessibilityPermissionMissing);
    const QList<DisplaySnapshot> displays = m_windowSystem.currentDisplays();
    QList<RunningApplication> applications = m_windowSystem.applicationsWithWindows();
    applications.removeIf([&](const RunningApplication& application) {
        return !isOffered(application) ||
               (filter && !filter->contains(*application.bundleIdentifier));
    });
    auto reading = QtConcurrent::run(&captureWindows, &m_windowSystem, applications, displays);
    QList<CapturedApplication> captured = co_await reading;
    if (captured.isEmpty() && !allowEmpty)
        co_return Unexpected(WindowServiceError::noWindows);
    co_return captured;
}

QCoro::Task<QList<CapturedApplication>> WindowCaptureService::runningApplications() const
{
    QList<CapturedApplication> captured;
    const QList<RunningApplication> applications = m_windowSystem.runningApplications();
    for (const RunningApplication& application : applications) {
        if (isOffered(application) && !application.isHidden)
            captured.append(makeCapturedApplication(application, {}, {}));
    }
    co_return captured;
}

bool WindowCaptureService::isOffered(const RunningApplication& application) const
{
    return application.processIdentifier != m_ownProcessIdentifier && application.isRegular &&
           !application.isTerminated && application.bundleIdentifier;
}

} // namespace trovell
