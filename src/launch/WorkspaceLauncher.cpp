// SPDX-License-Identifier: MIT

#include "launch/WorkspaceLauncher.h"

#include "launch/MissingWindowOpener.h"
#include "model/TrovellWorkspace.h"
#include "model/WindowPlacement.h"
#include "model/WorkspaceItem.h"
#include "support/EitherFuture.h"

#include <QCoro/QCoroFuture>

#include <algorithm>
#include <cmath>
#include <ranges>
#include <vector>

namespace trovell {

namespace {

constexpr double minimumTimeoutSeconds = 1.0;
/// Nobody waits longer, whatever was stored.
constexpr double maximumTimeoutSeconds = 3600.0;
constexpr std::chrono::milliseconds passInterval{250};
/// What does not answer for so long, such as a mount whose server is gone, is given up.
constexpr std::chrono::seconds longestOpening{10};
constexpr std::chrono::seconds longestAnswer{12};
constexpr std::chrono::seconds longestActivation{2};
/// A press so soon after the last one is a slip of the finger.
constexpr std::chrono::seconds secondPress{3};

double effectiveTimeout(double timeoutSeconds)
{
    // Written so that a timeout that is not a number becomes the minimum.
    return timeoutSeconds > minimumTimeoutSeconds ? std::min(timeoutSeconds, maximumTimeoutSeconds)
                                                  : minimumTimeoutSeconds;
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

QSet<QString> identifiersOf(const QList<WindowPlacementSnapshot>& snapshots)
{
    QSet<QString> identifiers;
    for (const WindowPlacementSnapshot& snapshot : snapshots)
        identifiers.insert(snapshot.bundleIdentifier);
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

/// The task goes on by itself when nobody waits for it any more.
template <class Result> QFuture<Result> futureOf(QCoro::Task<Result> task)
{
    const auto promise = std::make_shared<QPromise<Result>>();
    promise->start();
    if constexpr (std::is_void_v<Result>) {
        task.then([promise] { promise->finish(); });
    } else {
        task.then([promise](const Result& result) {
            promise->addResult(result);
            promise->finish();
        });
    }
    return promise->future();
}

LaunchResult timedOutResult(const WindowPlacementSnapshot& snapshot, const Message& reason,
                            const Message& advice)
{
    const QString name = snapshot.windowTitleHint.value_or(snapshot.applicationName);
    return makeLaunchResult(Message::verbatim(name), LaunchResultKind::timedOut, reason, advice);
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

template <class Result>
QCoro::Task<bool> WorkspaceLauncher::isDoneBy(Time time, QFuture<Result> work)
{
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(time - m_clock.steadyNow());
    auto limit = m_clock.sleepFor(left);
    const auto isStillWanted = finishedBefore(work, m_cancelling.future());
    auto waiting = finishedBefore(isStillWanted, limit);
    co_await waiting;
    limit.cancel();
    co_return work.isFinished();
}

QCoro::Task<> WorkspaceLauncher::start(TrovellWorkspace* workspace, bool accessibilityTrusted,
                                       double timeoutSeconds)
{
    if (isLaunching())
        co_return;
    const QPointer<TrovellWorkspace> guard(workspace);
    const QUuid workspaceID = workspace->id();
    const QSet<QString> restored = identifiersOf(enabledSnapshots(*workspace));
    if (restored.isEmpty() && isSecondPress(workspaceID))
        co_return;
    begin(workspaceID);
    m_lastStart = m_clock.steadyNow();
    const Items items = enabledItems(*workspace);
    const QStringList applications = applicationIdentifiers(items);
    const Run run = accessibilityTrusted && !restored.isEmpty()
                        ? m_windowRestorer.beginRun(restored)
                        : std::make_shared<RestoreRun>();

    Results results = co_await openItems(items);

    const Snapshots snapshots = guard ? enabledSnapshots(*guard) : Snapshots();
    const auto timeout = std::chrono::ceil<std::chrono::milliseconds>(
        std::chrono::duration<double>(effectiveTimeout(timeoutSeconds)));
    if (!snapshots.isEmpty() && accessibilityTrusted)
        results += co_await restoreWindows(snapshots, run, m_clock.steadyNow() + timeout);
    if (!snapshots.isEmpty() && !accessibilityTrusted) {
        results.append(noPermissionResult());
    } else {
        auto activating = m_windowSystem.activate(applications);
        auto waiting = isDoneBy(m_clock.steadyNow() + longestActivation, activating);
        co_await waiting;
    }

    if (guard) {
        guard->setLastLaunchedAt(m_clock.now());
        guard->setUpdatedAt(m_clock.now());
    }
    publish(workspaceID, std::move(results));
}

bool WorkspaceLauncher::isSecondPress(const QUuid& workspaceID) const
{
    return m_latestWorkspaceID == workspaceID && m_lastStart &&
           m_clock.steadyNow() - *m_lastStart < secondPress;
}

void WorkspaceLauncher::begin(const QUuid& workspaceID)
{
    m_cancelling = QPromise<void>();
    m_cancelling.start();
    m_lastRun.reset();
    setLaunching(workspaceID);
}

QCoro::Task<> WorkspaceLauncher::putWindowsBack()
{
    if (!canPutWindowsBack())
        co_return;
    const std::shared_ptr<const RestoreRun> run = m_lastRun;
    const QUuid workspaceID = m_latestWorkspaceID.value_or(QUuid());
    begin(workspaceID);
    const QFuture<Results> putting = futureOf(m_windowRestorer.putBack(run));
    auto waiting = isDoneBy(m_clock.steadyNow() + longestAnswer, putting);
    if (co_await waiting)
        publish(workspaceID, putting.result());
    else
        publish(workspaceID, {makeLaunchResult(u"Window layout"_key, LaunchResultKind::failed,
                                               u"The desktop did not answer in time."_key)});
}

void WorkspaceLauncher::cancel()
{
    if (isLaunching())
        m_cancelling.finish();
}

QCoro::Task<WorkspaceLauncher::Results> WorkspaceLauncher::openItems(Items items)
{
    Results results;
    for (const QPointer<WorkspaceItem>& item : std::as_const(items)) {
        // An item that was deleted while an earlier one was opened is no item any more.
        if (!item)
            continue;
        if (m_cancelling.future().isFinished())
            results.append(makeLaunchResult(Message::verbatim(item->displayName()),
                                            LaunchResultKind::failed,
                                            u"The start was canceled."_key));
        else
            results.append(co_await openItem(item));
    }
    co_return results;
}

QCoro::Task<LaunchResult> WorkspaceLauncher::openItem(QPointer<WorkspaceItem> item)
{
    const Message name = Message::verbatim(item->displayName());
    QPromise<void> givingUp;
    givingUp.start();
    const QFuture<LaunchResult> opening = futureOf(m_resourceOpener.open(*item, givingUp.future()));
    auto waiting = isDoneBy(m_clock.steadyNow() + longestOpening, opening);
    if (co_await waiting)
        co_return opening.result();
    givingUp.finish();
    const Message reason = m_cancelling.future().isFinished()
                               ? Message(u"The start was canceled."_key)
                               : Message(u"Its place did not answer in time."_key);
    co_return makeLaunchResult(name, LaunchResultKind::failed, reason);
}

QCoro::Task<WorkspaceLauncher::Results> WorkspaceLauncher::restoreWindows(Snapshots snapshots,
                                                                          Run run, Time deadline)
{
    // A task runs as soon as it is made: all applications are under way before the first is
    // awaited.
    std::vector<QCoro::Task<Results>> tasks;
    const QList<Snapshots> groups = groupedByApplication(snapshots);
    for (const Snapshots& group : groups)
        tasks.push_back(restoreApplicationWindows(group, run, deadline));
    Results results;
    for (QCoro::Task<Results>& task : tasks)
        results += co_await task;
    const QFuture<void> ending = futureOf(m_windowRestorer.endRun(run));
    auto waiting = isDoneBy(m_clock.steadyNow() + longestActivation, ending);
    co_await waiting;
    if (!run->moves.isEmpty())
        m_lastRun = run;
    co_return results;
}

QCoro::Task<WorkspaceLauncher::Results>
WorkspaceLauncher::restoreApplicationWindows(Snapshots pending, Run run, Time deadline)
{
    Results finished;
    WindowRestoreAttempt last;
    const WindowPlacementSnapshot first = pending.first();
    MissingWindowOpener opener(
        [&] { return m_resourceOpener.openNewWindow(first.bundleIdentifier); });
    while (!m_cancelling.future().isFinished()) {
        const QFuture<WindowRestoreAttempt> restoring =
            futureOf(m_windowRestorer.restorePlacements(pending, run));
        auto waiting = isDoneBy(deadline + longestAnswer, restoring);
        if (!co_await waiting)
            break;
        const WindowRestoreAttempt attempt = restoring.result();
        for (const WindowPlacementSnapshot& snapshot : std::as_const(pending)) {
            if (const auto result = attempt.completed.constFind(snapshot.id);
                result != attempt.completed.constEnd())
                finished.append(*result);
        }
        last = attempt;
        pending.removeIf([&attempt](const WindowPlacementSnapshot& snapshot) {
            return attempt.completed.contains(snapshot.id);
        });
        const Time now = m_clock.steadyNow();
        if (now < deadline)
            opener.consider(attempt, now);
        if (pending.isEmpty() || now >= deadline)
            break;
        auto pause = isDoneBy(m_clock.steadyNow() + passInterval, m_cancelling.future());
        co_await pause;
    }
    for (const WindowPlacementSnapshot& snapshot : std::as_const(pending)) {
        const Message reason = last.retryableDetails.value(
            snapshot.id, u"The window did not appear before the timeout."_key);
        if (m_cancelling.future().isFinished())
            finished.append(timedOutResult(snapshot, u"The start was canceled."_key, {}));
        else
            finished.append(timedOutResult(snapshot, reason, last.advice.value(snapshot.id)));
    }
    if (const qint64 count = opener.openedCount())
        finished.append(makeLaunchResult(Message::verbatim(first.applicationName),
                                         LaunchResultKind::opened,
                                         {u"%lld windows opened"_key, count}));
    co_return finished;
}

void WorkspaceLauncher::setLaunching(std::optional<QUuid> workspaceID)
{
    m_launchingWorkspaceID = workspaceID;
    Q_EMIT
    isLaunchingChanged(isLaunching());
}

void WorkspaceLauncher::publish(const QUuid& workspaceID, Results results)
{
    m_latestWorkspaceID = workspaceID;
    Q_EMIT
    latestWorkspaceIDChanged();
    m_latestReport = WorkspaceLaunchReport{std::move(results)};
    Q_EMIT
    latestReportChanged();
    setLaunching({});
}

} // namespace trovell
