#include "windows/WindowRestoreService.h"

#include "display/Rectangle.h"
#include "model/WindowPlacement.h"
#include "windows/OrdinaryWindow.h"
#include "windows/WindowMatching.h"
#include "windows/WindowServiceError.h"

#include <QCoro/QCoroFuture>
#include <QSet>
#include <QtConcurrentRun>

#include <cmath>

namespace trovell {

namespace {

using Placements = QList<WindowPlacementSnapshot>;

constexpr double minimumWidth = 240;
constexpr double minimumHeight = 160;
constexpr int maximumConcurrentPasses = 64;

void requireUniqueIds(const Placements& placements)
{
    QSet<QUuid> ids;
    for (const WindowPlacementSnapshot& placement : placements)
        ids.insert(placement.id);
    if (ids.size() != placements.size())
        qFatal("Two placements of one restore pass have the same id.");
}

LaunchResult failure(const WindowPlacementSnapshot& placement, LaunchResultKind kind,
                     const QString& detail)
{
    return makeLaunchResult(placement.applicationName, kind, detail);
}

LaunchResult noDisplayResult(const WindowPlacementSnapshot& placement)
{
    return failure(placement, LaunchResultKind::failed, QStringLiteral("No display is available."));
}

LaunchResult movedResult(const WindowPlacementSnapshot& placement, bool isAccepted)
{
    if (!isAccepted)
        return failure(placement, LaunchResultKind::failed,
                       QStringLiteral("macOS refused the window position change."));
    return makeLaunchResult(placement.windowTitleHint.value_or(placement.applicationName),
                            LaunchResultKind::restored);
}

WindowRestoreAttempt withoutPermission(const Placements& placements)
{
    requireUniqueIds(placements);
    WindowRestoreAttempt attempt;
    for (const WindowPlacementSnapshot& placement : placements)
        attempt.completed.insert(
            placement.id, failure(placement, LaunchResultKind::skippedNoPermission,
                                  description(WindowServiceError::accessibilityPermissionMissing)));
    return attempt;
}

WindowRestoreAttempt withoutApplication(const Placements& placements)
{
    requireUniqueIds(placements);
    WindowRestoreAttempt attempt;
    for (const WindowPlacementSnapshot& placement : placements)
        attempt.retryableDetails.insert(placement.id,
                                        QStringLiteral("The application is not running yet."));
    return attempt;
}

WindowRestoreAttempt withoutDisplay(const Placements& placements)
{
    requireUniqueIds(placements);
    WindowRestoreAttempt attempt;
    for (const WindowPlacementSnapshot& placement : placements)
        attempt.completed.insert(placement.id, noDisplayResult(placement));
    return attempt;
}

struct LiveWindows {
    QList<WindowHandle> handles;
    QList<WindowMatchCandidate> candidates;
};

LiveWindows ordinaryWindows(const QList<WindowAttributes>& windows)
{
    LiveWindows live;
    for (qsizetype index = 0; index < windows.size(); ++index) {
        const WindowAttributes& window = windows.at(index);
        if (!isOrdinaryWindow(window))
            continue;
        live.handles.append(window.handle);
        live.candidates.append({index, window.title, window.role, window.subrole});
    }
    return live;
}

QList<WindowMatchRequest> matchRequests(const Placements& placements)
{
    QList<WindowMatchRequest> requests;
    for (const WindowPlacementSnapshot& placement : placements)
        requests.append({placement.id, placement.windowTitleHint, placement.windowRole,
                         placement.windowSubrole, placement.windowIndexHint});
    return requests;
}

bool isFinite(const QRectF& frame)
{
    return std::isfinite(frame.x()) && std::isfinite(frame.y()) && std::isfinite(frame.width()) &&
           std::isfinite(frame.height());
}

/// One attempt over the placements of one application, on a worker.
WindowRestoreAttempt restorePass(WindowSystem* windowSystem, const RunningApplication& application,
                                 const Placements& placements,
                                 const QList<DisplaySnapshot>& displays)
{
    if (displays.isEmpty())
        return withoutDisplay(placements);
    const LiveWindows live = ordinaryWindows(windowSystem->readWindows({application}).value(0));
    const auto assignments = assignWindows(matchRequests(placements), live.candidates);

    WindowRestoreAttempt attempt;
    Placements moved;
    QList<WindowFrameRequest> requests;
    for (const WindowPlacementSnapshot& placement : placements) {
        const auto assignment = assignments.constFind(placement.id);
        if (assignment == assignments.constEnd()) {
            attempt.retryableDetails.insert(
                placement.id, QStringLiteral("A safe matching window was not found yet."));
            continue;
        }
        const std::optional<QRectF> target = restoreTarget(placement, displays);
        if (!target) {
            attempt.completed.insert(placement.id, noDisplayResult(placement));
        } else if (!isFinite(*target)) {
            attempt.completed.insert(placement.id, movedResult(placement, false));
        } else {
            moved.append(placement);
            requests.append({live.handles.at(*assignment), *target});
        }
    }
    if (requests.isEmpty())
        return attempt;
    const QList<bool> isAccepted = windowSystem->setWindowFrames(requests);
    for (qsizetype index = 0; index < moved.size(); ++index)
        attempt.completed.insert(moved.at(index).id,
                                 movedResult(moved.at(index), isAccepted.value(index)));
    return attempt;
}

} // namespace

bool WindowPlacementSnapshot::operator==(const WindowPlacementSnapshot& other) const
{
    return id == other.id && bundleIdentifier == other.bundleIdentifier &&
           applicationName == other.applicationName && windowTitleHint == other.windowTitleHint &&
           windowRole == other.windowRole && windowSubrole == other.windowSubrole &&
           windowIndexHint == other.windowIndexHint && normalizedFrame == other.normalizedFrame &&
           isSameRectangle(absoluteFrame, other.absoluteFrame) &&
           displayFingerprint == other.displayFingerprint;
}

WindowPlacementSnapshot makeSnapshot(const WindowPlacement& placement)
{
    return {placement.id(),
            placement.bundleIdentifier(),
            placement.applicationName(),
            placement.windowTitleHint(),
            placement.windowRole(),
            placement.windowSubrole(),
            placement.windowIndexHint(),
            placement.savedNormalizedFrame(),
            placement.savedAbsoluteFrame(),
            placement.savedDisplayFingerprint()};
}

std::optional<QRectF> restoreTarget(const WindowPlacementSnapshot& placement,
                                    const QList<DisplaySnapshot>& displays)
{
    const auto display = bestDisplay(placement.displayFingerprint, displays);
    if (!display)
        return std::nullopt;
    const QRectF wanted = denormalizeFrame(placement.normalizedFrame, display->visibleFrame);
    const QRectF clamped = clampedFrame(wanted, display->visibleFrame, minimumWidth, minimumHeight);
    return accessibilityFrameFromScreen(clamped, mainDisplayFrame(displays));
}

WindowRestoreService::WindowRestoreService(WindowSystem& windowSystem)
    : m_windowSystem(windowSystem)
{
    m_pool.setMaxThreadCount(maximumConcurrentPasses);
}

QCoro::Task<WindowRestoreAttempt>
WindowRestoreService::restorePlacements(QList<WindowPlacementSnapshot> placements)
{
    if (placements.isEmpty())
        co_return WindowRestoreAttempt();
    if (!m_windowSystem.isTrusted())
        co_return withoutPermission(placements);
    const QList<RunningApplication> applications =
        m_windowSystem.runningApplications(placements.first().bundleIdentifier);
    if (applications.isEmpty())
        co_return withoutApplication(placements);
    const QList<DisplaySnapshot> displays = m_windowSystem.currentDisplays();
    auto pass = QtConcurrent::run(&m_pool, &restorePass, &m_windowSystem, applications.first(),
                                  placements, displays);
    co_return co_await pass;
}

} // namespace trovell
