// SPDX-License-Identifier: MIT

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
                     const Message& detail)
{
    return makeLaunchResult(Message::verbatim(placement.applicationName), kind, detail);
}

LaunchResult noDisplayResult(const WindowPlacementSnapshot& placement)
{
    return failure(placement, LaunchResultKind::failed, u"No display is available."_key);
}

LaunchResult movedResult(const WindowPlacementSnapshot& placement, bool isAccepted)
{
    if (!isAccepted)
        return failure(placement, LaunchResultKind::failed,
                       u"macOS refused the window position change."_key);
    const QString name = placement.windowTitleHint.value_or(placement.applicationName);
    return makeLaunchResult(Message::verbatim(name), LaunchResultKind::restored);
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
        attempt.retryableDetails.insert(placement.id, u"The application is not running yet."_key);
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

/// What one attempt over the placements of one application comes to, without moving anything.
WindowRestorePlan makePlan(const Placements& placements, const QList<WindowAttributes>& windows,
                           const QList<DisplaySnapshot>& displays)
{
    const LiveWindows live = ordinaryWindows(windows);
    const auto assignments = assignWindows(matchRequests(placements), live.candidates);
    WindowRestorePlan plan;
    for (const WindowPlacementSnapshot& placement : placements) {
        const auto assignment = assignments.constFind(placement.id);
        if (assignment == assignments.constEnd()) {
            plan.attempt.retryableDetails.insert(placement.id,
                                                 u"A safe matching window was not found yet."_key);
            continue;
        }
        const std::optional<QRectF> target = restoreTarget(placement, displays);
        if (!target) {
            plan.attempt.completed.insert(placement.id, noDisplayResult(placement));
        } else if (!isFinite(*target)) {
            plan.attempt.completed.insert(placement.id, movedResult(placement, false));
        } else {
            plan.moved.append(placement);
            plan.requests.append({live.handles.at(*assignment), *target});
        }
    }
    return plan;
}

/// What is read on the main thread for a round.
struct Surroundings {
    bool isTrusted = false;
    /// By identifier; only those of the round.
    QHash<QString, RunningApplication> running;
    QList<DisplaySnapshot> displays;

    [[nodiscard]] bool hasWindowsToRead() const
    {
        return !running.isEmpty() && !displays.isEmpty();
    }
};

QHash<QString, QList<WindowAttributes>> readWindows(const WindowSystem& windowSystem,
                                                    const Surroundings& surroundings)
{
    if (!surroundings.hasWindowsToRead())
        return {};
    const QStringList identifiers = surroundings.running.keys();
    const auto windows = windowSystem.readWindows(surroundings.running.values());
    QHash<QString, QList<WindowAttributes>> result;
    for (qsizetype index = 0; index < identifiers.size(); ++index)
        result.insert(identifiers.at(index), windows.value(index));
    return result;
}

/// On a worker when there are windows to read.
QList<WindowRestorePlan> makePlans(const WindowSystem* windowSystem,
                                   const QList<Placements>& groups,
                                   const Surroundings& surroundings)
{
    const auto windows = readWindows(*windowSystem, surroundings);
    QList<WindowRestorePlan> plans;
    for (const Placements& group : groups) {
        const QString& identifier = group.first().bundleIdentifier;
        if (!surroundings.isTrusted)
            plans.append({withoutPermission(group), {}, {}});
        else if (!surroundings.running.contains(identifier))
            plans.append({withoutApplication(group), {}, {}});
        else if (surroundings.displays.isEmpty())
            plans.append({withoutDisplay(group), {}, {}});
        else
            plans.append(makePlan(group, windows.value(identifier), surroundings.displays));
    }
    return plans;
}

/// On a worker. Returns once the windows came to rest.
WindowRestoreAttempt moveWindows(WindowSystem* windowSystem, const WindowRestorePlan& plan)
{
    WindowRestoreAttempt attempt = plan.attempt;
    const QList<bool> isAccepted = windowSystem->setWindowFrames(plan.requests);
    for (qsizetype index = 0; index < plan.moved.size(); ++index)
        attempt.completed.insert(plan.moved.at(index).id,
                                 movedResult(plan.moved.at(index), isAccepted.value(index)));
    return attempt;
}

QHash<QString, RunningApplication> findApplications(WindowSystem& windowSystem,
                                                    const QList<Placements>& groups)
{
    QHash<QString, RunningApplication> withWindows;
    const QList<RunningApplication> all = windowSystem.applicationsWithWindows();
    for (const RunningApplication& application : all) {
        if (application.bundleIdentifier)
            withWindows.insert(*application.bundleIdentifier, application);
    }
    QHash<QString, RunningApplication> found;
    for (const Placements& group : groups) {
        const QString& identifier = group.first().bundleIdentifier;
        if (withWindows.contains(identifier)) {
            found.insert(identifier, withWindows.value(identifier));
            continue;
        }
        const QList<RunningApplication> running = windowSystem.runningApplications(identifier);
        if (!running.isEmpty())
            found.insert(identifier, running.first());
    }
    return found;
}

Surroundings readSurroundings(WindowSystem& windowSystem, const QList<Placements>& groups)
{
    if (!windowSystem.isTrusted())
        return {};
    Surroundings surroundings{true, findApplications(windowSystem, groups), {}};
    if (!surroundings.running.isEmpty())
        surroundings.displays = windowSystem.currentDisplays();
    return surroundings;
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
    const std::shared_ptr<Round> round = nextRound();
    const qsizetype position = round->groups.size();
    round->groups.append(placements);
    auto planned = round->plans.future();
    const QList<WindowRestorePlan> plans = co_await planned;
    const WindowRestorePlan plan = plans.at(position);
    if (plan.requests.isEmpty())
        co_return plan.attempt;
    auto moving = QtConcurrent::run(&m_pool, &moveWindows, &m_windowSystem, plan);
    co_return co_await moving;
}

std::shared_ptr<WindowRestoreService::Round> WindowRestoreService::nextRound()
{
    if (!m_nextRound) {
        m_nextRound = std::make_shared<Round>();
        m_nextRound->plans.start();
        QMetaObject::invokeMethod(
            &m_context, [this] { run(std::exchange(m_nextRound, nullptr)); }, Qt::QueuedConnection);
    }
    return m_nextRound;
}

QCoro::Task<> WindowRestoreService::run(std::shared_ptr<Round> round)
{
    const Surroundings surroundings = readSurroundings(m_windowSystem, round->groups);
    QList<WindowRestorePlan> plans;
    if (surroundings.hasWindowsToRead()) {
        auto planning =
            QtConcurrent::run(&m_pool, &makePlans, &m_windowSystem, round->groups, surroundings);
        plans = co_await planning;
    } else {
        plans = makePlans(&m_windowSystem, round->groups, surroundings);
    }
    round->plans.addResult(plans);
    round->plans.finish();
}

} // namespace trovell
