// SPDX-License-Identifier: MIT

#include "launch/WorkspaceLauncher.h"

#include "model/TrovellWorkspace.h"
#include "model/WindowPlacement.h"
#include "model/WorkspaceItem.h"

#include <QCoro/QCoroFuture>

#include <algorithm>
#include <cmath>
#include <ranges>
#include <vector>

namespace trovell {

namespace {

constexpr double minimumTimeoutSeconds = 1.0;
constexpr std::chrono::milliseconds passInterval{250};

double effectiveTimeout(double timeoutSeconds)
{
    // Written so that a timeout that is not a number becomes the minimum.
    return timeoutSeconds > minimumTimeoutSeconds ? timeoutSeconds : minimumTimeoutSeconds;
}

QDateTime deadlineAfter(const QDateTime& now, double timeoutSeconds)
{
    constexpr double century = 100.0 * 365 * 24 * 3600;
    return now.addMSecs(qint64(std::min(timeoutSeconds, century) * 1000));
}

QList<QPointer<WorkspaceItem>> enabledItems(const TrovellWorkspace& workspace)
{
    QList<QPointer<WorkspaceItem>> items;
    const QList<WorkspaceItem*> sorted = workspace.sortedItems();
    std::ranges::copy_if(sorted, std::back_inserter(items), &WorkspaceItem::isEnabled);
    return items;
}

QStringList applicationIdentifiers(const QList<QPointer<WorkspaceItem>>& items)
{
    QStringList identifiers;
    for (const QPointer<WorkspaceItem>& item : items) {
        if (item->typeRawValue() == rawValue(WorkspaceItemType::application) &&
            item->bundleIdentifier())
            identifiers.append(*item->bundleIdentifier());
    }
    return identifiers;
}

QList<WindowPlacementSnapshot> enabledSnapshots(const TrovellWorkspace& workspace)
{
    QList<WindowPlacementSnapshot> snapshots;
    const QList<WindowPlacement*> placements = workspace.sortedPlacements();
    for (const WindowPlacement* placement : placements) {
        if (placement->isEnabled())
            snapshots.append(makeSnapshot(*placement));
    }
    return snapshots;
}

/// In the order in which the applications first occur; the snapshots of each keep their order.
QList<QList<WindowPlacementSnapshot>>
groupedByApplication(const QList<WindowPlacementSnapshot>& snapshots)
{
    QList<QList<WindowPlacementSnapshot>> groups;
    QHash<QString, qsizetype> groupOfApplication;
    for (const WindowPlacementSnapshot& snapshot : snapshots) {
        const auto known = groupOfApplication.constFind(snapshot.bundleIdentifier);
        if (known != groupOfApplication.constEnd()) {
            groups[*known].append(snapshot);
        } else {
            groupOfApplication.insert(snapshot.bundleIdentifier, groups.size());
            groups.append({snapshot});
        }
    }
    return groups;
}

LaunchResult timedOutResult(const WindowPlacementSnapshot& snapshot,
                            const QHash<QUuid, Message>& lastRetryReasons)
{
    const QString name = snapshot.windowTitleHint.value_or(snapshot.applicationName);
    return makeLaunchResult(
        Message::verbatim(name), LaunchResultKind::timedOut,
        lastRetryReasons.value(snapshot.id, u"The window did not appear before the timeout."_key));
}

LaunchResult noPermissionResult()
{
    return makeLaunchResult(u"Window layout"_key, LaunchResultKind::skippedNoPermission,
                            u"Grant Accessibility access to restore saved windows."_key);
}

} // namespace

WorkspaceLauncher::WorkspaceLauncher(ResourceOpeningService& resourceOpener,
                                     WindowRestoreService& windowRestorer,
                                     WindowSystem& windowSystem, Clock& clock)
    : m_resourceOpener(resourceOpener), m_windowRestorer(windowRestorer),
      m_windowSystem(windowSystem), m_clock(clock)
{
}

QCoro::Task<> WorkspaceLauncher::start(TrovellWorkspace* workspace, bool accessibilityTrusted,
                                       double timeoutSeconds, std::stop_token stop)
{
    if (m_isLaunching)
        co_return;
    setLaunching(true);
    const QPointer<TrovellWorkspace> guard(workspace);
    const QUuid workspaceID = workspace->id();
    const Items items = enabledItems(*workspace);
    const QStringList applications = applicationIdentifiers(items);

    Results results = co_await openItems(items);

    const Snapshots snapshots = guard ? enabledSnapshots(*guard) : Snapshots();
    if (!snapshots.isEmpty() && accessibilityTrusted)
        results += co_await restoreWindows(snapshots, effectiveTimeout(timeoutSeconds), stop);
    if (!snapshots.isEmpty() && !accessibilityTrusted)
        results.append(noPermissionResult());
    else
        co_await m_windowSystem.activate(applications);

    if (guard) {
        guard->setLastLaunchedAt(m_clock.now());
        guard->setUpdatedAt(m_clock.now());
    }
    publish(workspaceID, std::move(results));
}

QCoro::Task<WorkspaceLauncher::Results> WorkspaceLauncher::openItems(Items items)
{
    Results results;
    for (const QPointer<WorkspaceItem>& item : std::as_const(items)) {
        // An item that was deleted while an earlier one was opened is no item any more.
        if (item)
            results.append(co_await m_resourceOpener.open(*item));
    }
    co_return results;
}

QCoro::Task<WorkspaceLauncher::Results>
WorkspaceLauncher::restoreWindows(Snapshots snapshots, double timeoutSeconds, std::stop_token stop)
{
    // A task runs as soon as it is made: all applications are under way before the first is
    // awaited.
    std::vector<QCoro::Task<Results>> tasks;
    const QList<Snapshots> groups = groupedByApplication(snapshots);
    for (const Snapshots& group : groups)
        tasks.push_back(restoreApplicationWindows(group, timeoutSeconds, stop));
    Results results;
    for (QCoro::Task<Results>& task : tasks)
        results += co_await task;
    co_return results;
}

QCoro::Task<WorkspaceLauncher::Results>
WorkspaceLauncher::restoreApplicationWindows(Snapshots pending, double timeoutSeconds,
                                             std::stop_token stop)
{
    const QDateTime deadline = deadlineAfter(m_clock.now(), timeoutSeconds);
    Results finished;
    QHash<QUuid, Message> lastRetryReasons;
    while (!stop.stop_requested()) {
        const WindowRestoreAttempt attempt = co_await m_windowRestorer.restorePlacements(pending);
        for (const WindowPlacementSnapshot& snapshot : std::as_const(pending)) {
            if (const auto result = attempt.completed.constFind(snapshot.id);
                result != attempt.completed.constEnd())
                finished.append(*result);
        }
        lastRetryReasons.insert(attempt.retryableDetails);
        pending.removeIf([&attempt](const WindowPlacementSnapshot& snapshot) {
            return attempt.completed.contains(snapshot.id);
        });
        if (pending.isEmpty() || m_clock.now() >= deadline)
            break;
        auto pause = m_clock.sleepFor(passInterval);
        co_await pause;
    }
    for (const WindowPlacementSnapshot& snapshot : std::as_const(pending))
        finished.append(timedOutResult(snapshot, lastRetryReasons));
    co_return finished;
}

void WorkspaceLauncher::setLaunching(bool isLaunching)
{
    m_isLaunching = isLaunching;
    Q_EMIT
    isLaunchingChanged(isLaunching);
}

void WorkspaceLauncher::publish(const QUuid& workspaceID, Results results)
{
    m_latestWorkspaceID = workspaceID;
    Q_EMIT
    latestWorkspaceIDChanged();
    m_latestReport = WorkspaceLaunchReport{std::move(results)};
    Q_EMIT
    latestReportChanged();
    setLaunching(false);
}

} // namespace trovell
