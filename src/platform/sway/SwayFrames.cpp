// SPDX-License-Identifier: MIT

#include "platform/sway/SwayFrames.h"

#include "platform/sway/SwayCommands.h"
#include "platform/sway/SwayReading.h"
#include "platform/sway/SwayWorkspaces.h"

#include <cmath>
#include <thread>

namespace trovell {

namespace {

using namespace std::chrono_literals;

bool isFinite(const QRectF& frame)
{
    return std::isfinite(frame.x()) && std::isfinite(frame.y()) && std::isfinite(frame.width()) &&
           std::isfinite(frame.height());
}

bool areReached(const QList<SwayGoal>& goals, const SwayTree& tree)
{
    return std::ranges::all_of(goals, [&tree](const SwayGoal& goal) {
        const SwayWindow* window = tree.window(goal.window);
        return !window || isReached(goal, *window, tree);
    });
}

/// None when the server is gone.
std::optional<SwayTree> readAtRest(const QList<SwayGoal>& goals, SwayConnection& connection)
{
    // The desktop tells what it asked for at once. A program that still draws in its size of before
    // gets that one back when it is done, and one that is slow is not believed for a fifth of a
    // second.
    constexpr int mostReadings = 20;
    constexpr int enough = 5;
    std::optional<SwayTree> tree;
    int reachedCount = 0;
    for (int reading = 0; reading < mostReadings && reachedCount < enough; ++reading) {
        if (reading > 0)
            std::this_thread::sleep_for(20ms);
        tree = readSwayTree(connection);
        if (!tree)
            return std::nullopt;
        const bool wasReached = reachedCount > 0;
        reachedCount = areReached(goals, *tree) ? reachedCount + 1 : 0;
        if (wasReached && reachedCount == 0)
            break;
    }
    return tree;
}

std::optional<SwayTree> approach(const QList<SwayGoal>& goals, SwayTree tree,
                                 SwayConnection& connection)
{
    constexpr int mostAttempts = 3;
    for (int attempt = 0; attempt < mostAttempts && !areReached(goals, tree); ++attempt) {
        if (!connection.run(commandsTowards(goals, tree)))
            return std::nullopt;
        const auto next = readAtRest(goals, connection);
        if (!next)
            return std::nullopt;
        tree = *next;
    }
    return tree;
}

} // namespace

QList<FrameOutcome> setSwayFrames(const QList<FrameRequest>& requests, SwayConnection& connection,
                                  SwayTiling& tiling)
{
    QList<FrameOutcome> outcomes(requests.size(), FrameOutcome::unanswered);
    const auto before = readSwayTree(connection);
    if (!before)
        return outcomes;
    const QStringList desktopNames =
        virtualDesktopNames(*before, SwayConfiguration(readSwayConfiguration(connection)));
    QList<SwayGoal> goals;
    QList<qsizetype> positions;
    for (qsizetype position = 0; position < requests.size(); ++position) {
        const FrameRequest& request = requests.at(position);
        const SwayWindow* window = before->window(request.window);
        if (window && isFinite(request.frame)) {
            goals.append(swayGoal(request, *window, *before, desktopNames));
            positions.append(position);
        } else {
            outcomes[position] = FrameOutcome::refused;
        }
    }
    goals = withWorkspacesShared(goals, *before);
    if (!approach(goals, *before, connection))
        return outcomes;
    tiling.arrange(goals, connection);
    if (const auto after = readSwayTree(connection)) {
        for (qsizetype index = 0; index < goals.size(); ++index)
            outcomes[positions.at(index)] =
                outcomeOf(goals.at(index), after->window(goals.at(index).window), *after);
    }
    return outcomes;
}

} // namespace trovell
