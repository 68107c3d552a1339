// SPDX-License-Identifier: MIT

#include "platform/sway/SwayGoal.h"

#include "display/Rectangle.h"
#include "platform/sway/SwayWorkspaces.h"

#include <algorithm>
#include <cmath>

namespace trovell {

namespace {

QRectF rounded(const QRectF& frame)
{
    return {std::round(frame.x()), std::round(frame.y()), std::round(frame.width()),
            std::round(frame.height())};
}

bool hasState(WindowStates states, WindowState state)
{
    return bool(states & state);
}

bool isInPlace(const SwayGoal& goal, const SwayWindow& window)
{
    if (hasState(goal.states, WindowState::minimized) || goal.isSticky)
        return true;
    return (goal.workspace.isEmpty() || isSameWorkspace(goal.workspace, window.workspace)) &&
           (goal.output.isEmpty() || goal.output == window.output);
}

bool hasOwnFrame(const SwayGoal& goal)
{
    return !(goal.states & swayStates);
}

bool isTilingOnly(const SwayGoal& goal)
{
    return goal.states == WindowState::tiled;
}

/// Whether nobody but windows of the goals lies on the workspace, so that it may move with them.
bool isOnlyFor(const QList<SwayGoal>& goals, const SwayWorkspace& workspace, const SwayTree& tree)
{
    return std::ranges::all_of(tree.windows, [&](const SwayWindow& window) {
        return window.workspace != workspace.name ||
               std::ranges::find(goals, window.id, &SwayGoal::window) != goals.end();
    });
}

/// Where the workspace of the goal is to lie.
QString outputOfWorkspace(const SwayGoal& goal, const QList<SwayGoal>& goals, const SwayTree& tree)
{
    const auto sharesIt = [&goal](const SwayGoal& other) {
        return isSameWorkspace(goal.workspace, other.workspace);
    };
    const QString first = std::ranges::find_if(goals, sharesIt)->output;
    const SwayWorkspace* existing = tree.workspaceLike(goal.workspace);
    if (!existing)
        return first;
    const bool isAgreed = std::ranges::all_of(
        goals, [&](const SwayGoal& other) { return !sharesIt(other) || other.output == first; });
    return isAgreed && isOnlyFor(goals, *existing, tree) ? first : existing->output;
}

} // namespace

SwayGoal swayGoal(const FrameRequest& request, const SwayWindow& window, const SwayTree& tree,
                  const QStringList& desktopNames)
{
    SwayGoal goal{
        window.id, rounded(request.frame), window.states & swayStates, tree.outputAt(request.frame),
        {},        window.isSticky};
    if (request.states)
        goal.states = *request.states & swayStates;
    else if (!isSameRectangle(goal.frame, window.frame))
        goal.states.setFlag(WindowState::fullScreen, false);
    if (!request.virtualDesktop) {
        // Taken to another output it leaves its workspace.
        if (window.output == goal.output)
            goal.workspace = window.workspace;
        return goal;
    }
    const int index = request.virtualDesktop->index;
    goal.isSticky = request.virtualDesktop->isAll && !hasState(goal.states, WindowState::tiled);
    if (!request.virtualDesktop->isAll && index >= 0)
        goal.workspace = desktopNames.value(index, QString::number(index + 1));
    return goal;
}

QList<SwayGoal> withWorkspacesShared(QList<SwayGoal> goals, const SwayTree& tree)
{
    const QList<SwayGoal> wished = goals;
    for (SwayGoal& goal : goals) {
        const bool isFree = goal.workspace.isEmpty() || goal.output.isEmpty() ||
                            hasState(goal.states, WindowState::minimized);
        if (!isFree && outputOfWorkspace(goal, wished, tree) != goal.output) {
            goal.workspace.clear();
            goal.hasLostWorkspace = true;
        }
    }
    return goals;
}

bool isReached(const SwayGoal& goal, const SwayWindow& window, const SwayTree& tree)
{
    if (goal.states != window.states || !isInPlace(goal, window))
        return false;
    if (!window.isTiled() && !window.workspace.isEmpty() && goal.isSticky != window.isSticky)
        return false;
    // One that fills a display has done so on the right one.
    return !hasOwnFrame(goal) || tree.displays.isEmpty() ||
           isSameRectangle(goal.frame, window.frame);
}

FrameOutcome outcomeOf(const SwayGoal& goal, const SwayWindow* window, const SwayTree& tree)
{
    if (!window)
        return FrameOutcome::refused;
    if (goal.hasLostWorkspace)
        return FrameOutcome::otherDesktop;
    if (isTilingOnly(goal) && window->states == goal.states && isInPlace(goal, *window)) {
        // Shares of a display come out a pixel more or less.
        const QRectF& frame = window->frame;
        const auto isNear = [](double a, double b) { return std::abs(a - b) <= 1; };
        const bool isFitting = isNear(frame.x(), goal.frame.x()) &&
                               isNear(frame.y(), goal.frame.y()) &&
                               isNear(frame.width(), goal.frame.width()) &&
                               isNear(frame.height(), goal.frame.height());
        return isFitting ? FrameOutcome::taken : FrameOutcome::tiled;
    }
    if (isReached(goal, *window, tree))
        return FrameOutcome::taken;
    if (!isInPlace(goal, *window))
        return FrameOutcome::otherDesktop;
    if (goal.states != window->states)
        return FrameOutcome::otherStates;
    // The desktop sets every size that the window's own rules allow.
    return window->frame.topLeft() == goal.frame.topLeft() ? FrameOutcome::taken
                                                           : FrameOutcome::refused;
}

} // namespace trovell
