// SPDX-License-Identifier: MIT

#include "windows/WindowRestoreService.h"

#include "display/Rectangle.h"
#include "model/WindowPlacement.h"
#include "windows/MissingWindow.h"
#include "windows/WindowServiceError.h"

#include <QCoro/QCoroFuture>
#include <QHash>
#include <QSet>
#include <QtConcurrentRun>

#include <cmath>

namespace trovell {

namespace {

using Placements = QList<WindowPlacementSnapshot>;

constexpr double minimumWidth = 240;
constexpr double minimumHeight = 160;

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

LaunchResult movedResult(const WindowPlacementSnapshot& placement, FrameOutcome outcome)
{
    const Message name =
        Message::verbatim(placement.windowTitleHint.value_or(placement.applicationName));
    const auto restored = [&name](const Message& detail = {}) {
        return makeLaunchResult(name, LaunchResultKind::restored, detail);
    };
    switch (outcome) {
    case FrameOutcome::taken:
        return restored();
    case FrameOutcome::tiled:
        return restored(u"Tiled by the desktop."_key);
    case FrameOutcome::movedByPerson:
        return restored(u"You moved it yourself, so it stays where you put it."_key);
    case FrameOutcome::otherSize:
        return makeLaunchResult(name, LaunchResultKind::failed,
                                u"The window is in its place but chose another size."_key);
    case FrameOutcome::refused:
    case FrameOutcome::unanswered:
        return failure(placement, LaunchResultKind::failed,
                       u"macOS refused the window position change."_key);
    }
    Q_UNREACHABLE();
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
    for (const WindowPlacementSnapshot& placement : placements) {
        attempt.retryableDetails.insert(placement.id, u"The application is not running yet."_key);
        attempt.advice.insert(placement.id, adviceForMissingApplication(placement.applicationName));
    }
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

bool isFinite(const QRectF& frame)
{
    return std::isfinite(frame.x()) && std::isfinite(frame.y()) && std::isfinite(frame.width()) &&
           std::isfinite(frame.height());
}

void noteMissing(const WindowPlacementSnapshot& placement, const QList<DesktopWindow>& windows,
                 WindowRestorePlan& plan)
{
    const Message reason = u"A safe matching window was not found yet."_key;
    const Message advice = adviceForMissingWindow(placement.applicationName, windows, plan.known);
    const QString name = placement.windowTitleHint.value_or(placement.applicationName);
    if (areAllPutAway(windows, plan.known)) {
        plan.attempt.completed.insert(
            placement.id,
            makeLaunchResult(Message::verbatim(name), LaunchResultKind::timedOut, reason, advice));
        return;
    }
    plan.attempt.retryableDetails.insert(placement.id, reason);
    plan.attempt.advice.insert(placement.id, advice);
}

/// What one attempt over the placements of one application comes to, without moving anything.
WindowRestorePlan makePlan(const RestoreGroup& group, const QList<DesktopWindow>& windows,
                           const StoredDisplays& displays,
                           std::chrono::steady_clock::time_point now)
{
    WindowRestorePlan plan;
    plan.known = group.known;
    pairWindows(group.placements, windows, now, plan.known);
    for (const WindowPlacementSnapshot& placement : group.placements) {
        const auto window = plan.known.paired.constFind(placement.id);
        if (window == plan.known.paired.constEnd()) {
            noteMissing(placement, windows, plan);
            continue;
        }
        const std::optional<QRectF> target = restoreTarget(placement, displays);
        if (!target) {
            plan.attempt.completed.insert(placement.id, noDisplayResult(placement));
        } else if (!isFinite(*target)) {
            plan.attempt.completed.insert(placement.id,
                                          movedResult(placement, FrameOutcome::refused));
        } else {
            plan.moved.append(placement);
            plan.requests.append({*window, *target});
        }
    }
    return plan;
}

WindowRestorePlan planWithout(const RestoreGroup& group, const WindowRestoreAttempt& attempt)
{
    return {attempt, group.known, {}, {}};
}

/// On a worker: the plans of all groups, in their order.
QList<WindowRestorePlan> makePlans(const QList<RestoreGroup>& groups,
                                   const DesktopSnapshot& desktop,
                                   std::chrono::steady_clock::time_point now)
{
    QHash<QString, RunningApplication> running;
    for (const RunningApplication& application : desktop.applications) {
        if (application.bundleIdentifier)
            running.insert(*application.bundleIdentifier, application);
    }
    const StoredDisplays displays(desktop.displays);
    QList<WindowRestorePlan> plans;
    for (const RestoreGroup& group : groups) {
        const Placements& placements = group.placements;
        const auto application = running.constFind(placements.first().bundleIdentifier);
        if (desktop.control != WindowControl::available)
            plans.append(planWithout(group, withoutPermission(placements)));
        else if (application == running.cend())
            plans.append(planWithout(group, withoutApplication(placements)));
        else if (desktop.displays.isEmpty())
            plans.append(planWithout(group, withoutDisplay(placements)));
        else
            plans.append(makePlan(group, application->windows, displays, now));
    }
    return plans;
}

DesktopQuestion questionAbout(const QSet<QString>& identifiers)
{
    return {.applications = DesktopQuestion::Applications::named,
            .identifiers = identifiers,
            .windows = true,
            .withoutWindows = true,
            .displays = true};
}

WindowRestoreAttempt completedAttempt(const WindowRestorePlan& plan,
                                      const QList<FrameOutcome>& outcomes)
{
    WindowRestoreAttempt attempt = plan.attempt;
    for (qsizetype index = 0; index < plan.moved.size(); ++index) {
        const WindowPlacementSnapshot& placement = plan.moved.at(index);
        const FrameOutcome outcome = outcomes.value(index, FrameOutcome::refused);
        if (outcome == FrameOutcome::unanswered)
            attempt.retryableDetails.insert(placement.id,
                                            u"The desktop did not answer in time."_key);
        else
            attempt.completed.insert(placement.id, movedResult(placement, outcome));
    }
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
           displayFingerprint == other.displayFingerprint && states == other.states &&
           virtualDesktop == other.virtualDesktop && stackingIndex == other.stackingIndex &&
           opensMissingWindow == other.opensMissingWindow;
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
                                    const StoredDisplays& displays)
{
    const auto display = bestDisplay(placement.displayFingerprint, displays.snapshots());
    if (!display)
        return std::nullopt;
    const QRectF wanted = denormalizeFrame(placement.normalizedFrame, display->visibleFrame);
    const QRectF clamped = clampedFrame(wanted, display->visibleFrame, minimumWidth, minimumHeight);
    return displays.desktopFrame(clamped);
}

WindowRestoreService::WindowRestoreService(WindowSystem& windowSystem, Clock& clock)
    : m_windowSystem(windowSystem), m_clock(clock)
{
}

std::shared_ptr<RestoreRun> WindowRestoreService::beginRun(const QSet<QString>& identifiers)
{
    const auto run = std::make_shared<RestoreRun>();
    run->earlier = m_windowSystem.ask(questionAbout(identifiers));
    return run;
}

QCoro::Task<WindowRestoreAttempt>
WindowRestoreService::restorePlacements(QList<WindowPlacementSnapshot> placements,
                                        std::shared_ptr<RestoreRun> run)
{
    if (placements.isEmpty())
        co_return WindowRestoreAttempt();
    co_await noteEarlierWindows(run);
    const QString identifier = placements.first().bundleIdentifier;
    const std::shared_ptr<Round> round = nextRound();
    const qsizetype position = round->groups.size();
    round->groups.append({placements, run->applications.value(identifier)});
    auto planned = round->plans.future();
    const QList<WindowRestorePlan> plans = co_await planned;
    const WindowRestorePlan& plan = plans.at(position);
    run->applications.insert(identifier, plan.known);
    if (plan.requests.isEmpty() || run->isOver)
        co_return plan.attempt;
    auto moving = m_windowSystem.setFrames(plan.requests);
    const QList<FrameOutcome> outcomes = co_await moving;
    co_return completedAttempt(plan, outcomes);
}

QCoro::Task<> WindowRestoreService::noteEarlierWindows(std::shared_ptr<RestoreRun> run)
{
    if (!run->earlier)
        co_return;
    auto reading = *run->earlier;
    const DesktopSnapshot desktop = co_await reading;
    run->earlier.reset();
    for (const RunningApplication& application : desktop.applications) {
        ApplicationWindows& known =
            run->applications[application.bundleIdentifier.value_or(QString())];
        for (const DesktopWindow& window : application.windows)
            known.earlier.insert(window.id);
    }
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
    QSet<QString> identifiers;
    for (const RestoreGroup& group : std::as_const(round->groups))
        identifiers.insert(group.placements.first().bundleIdentifier);
    auto reading = m_windowSystem.ask(questionAbout(identifiers));
    const DesktopSnapshot desktop = co_await reading;
    auto planning = QtConcurrent::run(&makePlans, round->groups, desktop, m_clock.steadyNow());
    const QList<WindowRestorePlan> plans = co_await planning;
    round->plans.addResult(plans);
    round->plans.finish();
}

} // namespace trovell
