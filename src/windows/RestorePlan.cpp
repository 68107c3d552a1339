// SPDX-License-Identifier: MIT

#include "windows/RestorePlan.h"

#include "windows/MissingWindow.h"
#include "windows/WindowServiceError.h"

#include <QSet>

#include <algorithm>
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

/// By its name, else by its number.
std::optional<DesktopPlace> desktopOf(const WindowPlacementSnapshot& placement,
                                      const DesktopSnapshot& desktop)
{
    const auto& saved = placement.virtualDesktop;
    if (!saved || !desktop.abilities.hasVirtualDesktops)
        return std::nullopt;
    if (saved->isAll)
        return DesktopPlace{.isAll = true};
    const QStringList& names = desktop.virtualDesktopNames;
    const qsizetype sameName = names.indexOf(saved->name);
    const bool isByName =
        !saved->name.isEmpty() && sameName >= 0 && names.value(saved->index) != saved->name;
    return DesktopPlace{.index = isByName ? int(sameName) : saved->index};
}

void countWindows(const Placements& placements, const QList<DesktopWindow>& windows,
                  std::chrono::steady_clock::time_point now, WindowRestorePlan& plan)
{
    // A program that opens its windows of last time may pause between them.
    constexpr std::chrono::seconds rest{2};
    QSet<QUuid> saved(plan.known.paired.keyBegin(), plan.known.paired.keyEnd());
    for (const WindowPlacementSnapshot& placement : placements)
        saved.insert(placement.id);
    WindowRestoreAttempt& attempt = plan.attempt;
    attempt.wantedWindowCount = saved.size();
    attempt.windowCount = std::ranges::count(windows, WindowKind::standard, &DesktopWindow::kind);
    attempt.isAtRest = now - plan.known.seenSince >= rest;
    attempt.opensMissingWindows =
        std::ranges::any_of(placements, &WindowPlacementSnapshot::opensMissingWindow);
}

/// What one attempt over the placements of one application comes to, without moving anything.
WindowRestorePlan makePlan(const RestoreGroup& group, const QList<DesktopWindow>& windows,
                           const DesktopSnapshot& desktop, const StoredDisplays& displays,
                           std::chrono::steady_clock::time_point now)
{
    WindowRestorePlan plan;
    plan.known = group.known;
    plan.desktopInView = desktop.currentVirtualDesktop;
    pairWindows(group.placements, windows, now, plan.known);
    countWindows(group.placements, windows, now, plan);
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
            const auto found = std::ranges::find(windows, *window, &DesktopWindow::id);
            const auto virtualDesktop = desktopOf(placement, desktop);
            plan.moves.append({placement,
                               {*window, *target, placement.states, virtualDesktop},
                               found == windows.end() ? DesktopWindow{} : *found});
        }
    }
    return plan;
}

WindowRestorePlan planWithout(const RestoreGroup& group, const WindowRestoreAttempt& attempt)
{
    return {attempt, group.known, {}, {}};
}

} // namespace

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
    case FrameOutcome::otherDesktop:
        return makeLaunchResult(name, LaunchResultKind::failed,
                                u"The window is in its place but stayed on another desktop."_key);
    case FrameOutcome::otherStates:
        return makeLaunchResult(
            name, LaunchResultKind::failed,
            u"The window is in its place but did not take its saved state."_key);
    case FrameOutcome::refused:
    case FrameOutcome::unanswered:
        return failure(placement, LaunchResultKind::failed,
                       u"macOS refused the window position change."_key);
    }
    Q_UNREACHABLE();
}

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
            plans.append(makePlan(group, application->windows, desktop, displays, now));
    }
    return plans;
}

WindowRestoreAttempt completedAttempt(const WindowRestorePlan& plan,
                                      const QList<FrameOutcome>& outcomes)
{
    WindowRestoreAttempt attempt = plan.attempt;
    for (qsizetype index = 0; index < plan.moves.size(); ++index) {
        const WindowPlacementSnapshot& placement = plan.moves.at(index).placement;
        const FrameOutcome outcome = outcomes.value(index, FrameOutcome::refused);
        if (outcome == FrameOutcome::unanswered)
            attempt.retryableDetails.insert(placement.id,
                                            u"The desktop did not answer in time."_key);
        else
            attempt.completed.insert(placement.id, movedResult(placement, outcome));
    }
    return attempt;
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

} // namespace trovell
