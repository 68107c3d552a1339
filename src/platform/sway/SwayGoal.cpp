// SPDX-License-Identifier: MIT

#include "platform/sway/SwayGoal.h"

#include "display/Rectangle.h"
#include "platform/sway/SwayWorkspaces.h"

#include <algorithm>
#include <cmath>

namespace trovell {

namespace {

QByteArray number(double value)
{
    return QByteArray::number(std::llround(value));
}

QRectF rounded(const QRectF& frame)
{
    return {std::round(frame.x()), std::round(frame.y()), std::round(frame.width()),
            std::round(frame.height())};
}

bool hasState(WindowStates states, WindowState state)
{
    return bool(states & state);
}

bool isSameWorkspace(const QString& a, const QString& b)
{
    return a == b || (workspaceNumber(a) >= 0 && workspaceNumber(a) == workspaceNumber(b));
}

/// The one that exists under that name or number; null without one.
const SwayWorkspace* existing(const QString& name, const SwayTree& tree)
{
    const auto found = std::ranges::find_if(tree.workspaces, [&name](const auto& workspace) {
        return isSameWorkspace(workspace.name, name);
    });
    return found == tree.workspaces.end() ? nullptr : &*found;
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
    return !(goal.states & (swayStates));
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

/// Collects the commands of one batch.
class Batch {
public:
    Batch(const QList<SwayGoal>& goals, const SwayTree& tree) : m_goals(goals), m_tree(tree) {}

    void add(const SwayGoal& goal, const SwayWindow& window)
    {
        m_window = criteriaOf(goal.window);
        leaveStates(goal, window);
        if (!hasState(goal.states, WindowState::tiled) && !hasStayedPut(goal, window))
            place(goal);
        goToWorkspace(goal, window);
        if (window.isSticky != goal.isSticky && !window.isTiled())
            send(goal.isSticky ? "sticky enable" : "sticky disable");
        if (hasState(goal.states, WindowState::fullScreen))
            send("fullscreen enable");
        if (hasState(goal.states, WindowState::minimized))
            send("move scratchpad");
    }

    [[nodiscard]] QByteArrayList commands()
    {
        if (m_hasMovedWorkspaces)
            showWorkspaces();
        if (m_hasMovedFocus)
            focusAsBefore();
        return m_commands;
    }

private:
    void send(const QByteArray& command) { m_commands.append(m_window + command); }

    void leaveStates(const SwayGoal& goal, const SwayWindow& window)
    {
        if (hasState(window.states, WindowState::minimized)) {
            m_hasMovedFocus = true;
            send("scratchpad show");
        }
        if (hasState(window.states, WindowState::fullScreen))
            send("fullscreen disable");
        const bool isToBeTiled = hasState(goal.states, WindowState::tiled);
        if (isToBeTiled != window.isTiled())
            send(isToBeTiled ? "floating disable" : "floating enable");
    }

    /// A window that floats where it should only lacks its states.
    [[nodiscard]] static bool hasStayedPut(const SwayGoal& goal, const SwayWindow& window)
    {
        return !window.states && isSameRectangle(goal.frame, window.frame);
    }

    /// Brings it to the workspace in view on that output, so its workspace comes after this.
    void place(const SwayGoal& goal)
    {
        const QRectF& frame = goal.frame;
        send("resize set " + number(frame.width()) + " px " + number(frame.height()) + " px");
        send("move absolute position " + number(frame.x()) + " px " + number(frame.y()) + " px");
    }

    void goToWorkspace(const SwayGoal& goal, const SwayWindow& window)
    {
        if (goal.workspace.isEmpty()) {
            if (hasState(goal.states, WindowState::tiled) && goal.output != window.output &&
                !goal.output.isEmpty())
                send("move container to output \"" + goal.output.toUtf8() + '"');
            return;
        }
        const SwayWorkspace* workspace = existing(goal.workspace, m_tree);
        if (!workspace && !goal.output.isEmpty()) {
            // It is made on the output that has the focus.
            m_hasMovedFocus = true;
            m_commands.append("focus output \"" + goal.output.toUtf8() + '"');
        }
        send("move --no-auto-back-and-forth container to workspace " +
             workspaceArgument(workspace ? workspace->name : goal.workspace));
        if (workspace && !goal.output.isEmpty() && workspace->output != goal.output &&
            isOnlyFor(m_goals, *workspace, m_tree)) {
            m_hasMovedWorkspaces = true;
            send("move workspace to output \"" + goal.output.toUtf8() + '"');
        }
    }

    void showWorkspaces()
    {
        m_hasMovedFocus = true;
        for (const SwayWorkspace& workspace : m_tree.workspaces) {
            if (workspace.isVisible)
                m_commands.append("workspace --no-auto-back-and-forth " +
                                  workspaceArgument(workspace.name));
        }
    }

    void focusAsBefore()
    {
        for (const SwayWorkspace& workspace : m_tree.workspaces) {
            if (workspace.isFocused)
                m_commands.append("focus output \"" + workspace.output.toUtf8() + '"');
        }
        for (const SwayWindow& window : m_tree.windows) {
            const auto goal = std::ranges::find(m_goals, window.id, &SwayGoal::window);
            const bool isPutAway =
                goal != m_goals.end() && hasState(goal->states, WindowState::minimized);
            if (window.isFocused && !isPutAway)
                m_commands.append(criteriaOf(window.id) + "focus");
        }
    }

    const QList<SwayGoal>& m_goals;
    const SwayTree& m_tree;
    QByteArray m_window;
    QByteArrayList m_commands;
    bool m_hasMovedFocus = false;
    bool m_hasMovedWorkspaces = false;
};

} // namespace

QByteArray criteriaOf(const WindowId& window)
{
    return "[con_id=" + QByteArray::number(window.high()) + "] ";
}

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

QByteArrayList commandsTowards(const QList<SwayGoal>& goals, const SwayTree& tree)
{
    Batch batch(goals, tree);
    for (const SwayGoal& goal : goals) {
        const SwayWindow* window = tree.window(goal.window);
        if (window && !isReached(goal, *window, tree))
            batch.add(goal, *window);
    }
    return batch.commands();
}

FrameOutcome outcomeOf(const SwayGoal& goal, const SwayWindow* window, const SwayTree& tree)
{
    if (!window)
        return FrameOutcome::refused;
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
