// SPDX-License-Identifier: MIT

#include "windows/WindowRestoreService.h"

#include <QCoro/QCoroFuture>
#include <QSet>
#include <QtConcurrentRun>

#include <algorithm>
#include <utility>

namespace trovell {

namespace {

DesktopQuestion questionAbout(const QSet<QString>& identifiers)
{
    return {.applications = DesktopQuestion::Applications::named,
            .identifiers = identifiers,
            .windows = true,
            .withoutWindows = true,
            .displays = true};
}

QList<FrameRequest> requestsOf(const QList<PlannedMove>& moves)
{
    QList<FrameRequest> requests;
    for (const PlannedMove& move : moves)
        requests.append(move.request);
    return requests;
}

/// A window that is asked again keeps what was known before the first time.
void noteMoves(const WindowRestorePlan& plan, RestoreRun& run)
{
    run.desktopInView = plan.desktopInView;
    for (const PlannedMove& move : plan.moves) {
        const auto isSame = [&move](const PlannedMove& known) {
            return known.request.window == move.request.window;
        };
        if (std::ranges::none_of(run.moves, isSame))
            run.moves.append(move);
    }
}

QList<WindowId> savedOrder(const RestoreRun& run)
{
    QList<PlannedMove> moves = run.moves;
    moves.removeIf([](const PlannedMove& move) { return !move.placement.stackingIndex; });
    std::ranges::stable_sort(moves, {},
                             [](const PlannedMove& move) { return *move.placement.stackingIndex; });
    QList<WindowId> order;
    for (const PlannedMove& move : std::as_const(moves))
        order.append(move.request.window);
    return order;
}

/// The one desktop that all windows were brought to, if it is not in view.
std::optional<int> desktopToShow(const RestoreRun& run)
{
    std::optional<int> shown;
    for (const PlannedMove& move : run.moves) {
        const auto& place = move.request.virtualDesktop;
        if (!place || place->isAll || (shown && *shown != place->index))
            return std::nullopt;
        shown = place->index;
    }
    return shown == run.desktopInView ? std::nullopt : shown;
}

std::optional<DesktopPlace> placeOf(const DesktopWindow& window)
{
    if (window.isOnAllDesktops)
        return DesktopPlace{.isAll = true};
    return window.virtualDesktop ? std::optional(DesktopPlace{*window.virtualDesktop})
                                 : std::nullopt;
}

bool isAsBefore(const DesktopWindow& before, const DesktopWindow& now)
{
    return before.frame == now.frame && before.states == now.states &&
           placeOf(before) == placeOf(now);
}

/// Those whose windows are still there, and do not stand as they did.
QList<PlannedMove> movesBack(const RestoreRun& run, const DesktopSnapshot& desktop)
{
    QHash<WindowId, DesktopWindow> now;
    for (const RunningApplication& application : desktop.applications) {
        for (const DesktopWindow& window : application.windows)
            now.insert(window.id, window);
    }
    QList<PlannedMove> moves;
    for (const PlannedMove& move : run.moves) {
        const DesktopWindow& before = move.before;
        const auto window = now.constFind(before.id);
        if (window != now.cend() && before.frame && !isAsBefore(before, *window))
            moves.append({move.placement,
                          {before.id, *before.frame, before.states, placeOf(before)},
                          *window});
    }
    return moves;
}

} // namespace

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
    if (plan.moves.isEmpty() || run->isOver)
        co_return plan.attempt;
    noteMoves(plan, *run);
    auto moving = m_windowSystem.setFrames(requestsOf(plan.moves));
    const QList<FrameOutcome> outcomes = co_await moving;
    co_return completedAttempt(plan, outcomes);
}

QCoro::Task<> WindowRestoreService::endRun(std::shared_ptr<RestoreRun> run)
{
    run->isOver = true;
    const QList<WindowId> order = savedOrder(*run);
    if (order.size() > 1) {
        auto stacking = m_windowSystem.restack(order);
        co_await stacking;
    }
    if (const auto desktop = desktopToShow(*run)) {
        auto showing = m_windowSystem.showVirtualDesktop(*desktop);
        co_await showing;
    }
}

QCoro::Task<QList<LaunchResult>>
WindowRestoreService::putBack(std::shared_ptr<const RestoreRun> run)
{
    const QList<QString> identifiers = run->applications.keys();
    auto reading = m_windowSystem.ask(questionAbout({identifiers.begin(), identifiers.end()}));
    const DesktopSnapshot desktop = co_await reading;
    const QList<PlannedMove> moves = movesBack(*run, desktop);
    auto moving = m_windowSystem.setFrames(requestsOf(moves));
    const QList<FrameOutcome> outcomes = co_await moving;
    QList<LaunchResult> results;
    for (qsizetype index = 0; index < moves.size(); ++index)
        results.append(
            movedResult(moves.at(index).placement, outcomes.value(index, FrameOutcome::refused)));
    co_return results;
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
