// SPDX-License-Identifier: MIT

#include "platform/sway/SwayCommands.h"

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

bool isToBe(const SwayGoal& goal, WindowState state)
{
    return bool(goal.states & state);
}

/// Collects the commands of one batch.
class Batch {
public:
    Batch(const QList<SwayGoal>& goals, const SwayTree& tree) : m_goals(goals), m_tree(tree) {}

    void add(const SwayGoal& goal, const SwayWindow& window)
    {
        m_window = criteriaOf(goal.window);
        leaveStates(goal, window);
        if (!isToBe(goal, WindowState::tiled) && !hasStayedPut(goal, window))
            place(goal);
        goToWorkspace(goal, window);
        if (window.isSticky != goal.isSticky && !window.isTiled())
            send(goal.isSticky ? "sticky enable" : "sticky disable");
        if (isToBe(goal, WindowState::fullScreen))
            send("fullscreen enable");
        if (isToBe(goal, WindowState::minimized))
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
        if (window.states & WindowState::minimized) {
            m_hasMovedFocus = true;
            send("scratchpad show");
        }
        if (window.states & WindowState::fullScreen)
            send("fullscreen disable");
        const bool isToBeTiled = isToBe(goal, WindowState::tiled);
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
            if (isToBe(goal, WindowState::tiled) && goal.output != window.output &&
                !goal.output.isEmpty())
                send("move container to output \"" + goal.output.toUtf8() + '"');
            return;
        }
        const SwayWorkspace* workspace = m_tree.workspaceLike(goal.workspace);
        if (!workspace && !goal.output.isEmpty()) {
            // It is made on the output that has the focus.
            m_hasMovedFocus = true;
            m_commands.append("focus output \"" + goal.output.toUtf8() + '"');
        }
        send("move --no-auto-back-and-forth container to workspace " +
             workspaceArgument(workspace ? workspace->name : goal.workspace));
        if (workspace && !goal.output.isEmpty() && workspace->output != goal.output) {
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
            const bool isPutAway = goal != m_goals.end() && isToBe(*goal, WindowState::minimized);
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

} // namespace trovell
