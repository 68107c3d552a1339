// SPDX-License-Identifier: MIT

#include "platform/sway/SwayTiling.h"

#include "platform/sway/SwayCommands.h"
#include "platform/sway/SwayReading.h"

#include <QSet>

#include <algorithm>
#include <cmath>
#include <tuple>

namespace trovell {

namespace {

using namespace std::chrono_literals;

/// About as long as a launch.
constexpr std::chrono::seconds wishDuration{30};

/// The windows of one workspace that somebody wants somewhere.
QList<SwayWindow> wantedOn(const QString& workspace, const SwayTree& tree,
                           const QHash<WindowId, QRectF>& wanted)
{
    QList<SwayWindow> windows;
    for (const SwayWindow& window : tree.windows) {
        if (window.workspace == workspace && window.states == WindowState::tiled &&
            wanted.contains(window.id))
            windows.append(window);
    }
    return windows;
}

/// One border of a window that has to move.
struct Border {
    WindowId window;
    bool isBelow = false;
    int distance = 0;

    [[nodiscard]] QByteArray command() const
    {
        const QByteArray direction = isBelow ? " down " : " right ";
        return criteriaOf(window) + "resize " + (distance > 0 ? "grow" : "shrink") + direction +
               QByteArray::number(std::abs(distance)) + " px";
    }
};

/// Borders at the right and below are moved from the left and the top on: what lies before stays.
std::optional<Border> nextBorder(const QList<SwayWindow>& windows,
                                 const QHash<WindowId, QRectF>& wanted,
                                 QSet<std::pair<WindowId, bool>>& tried)
{
    for (const SwayWindow& window : windows) {
        const QRectF& frame = window.frame;
        const QRectF goal = wanted.value(window.id);
        for (const bool isBelow : {false, true}) {
            const double distance = isBelow ? goal.y() + goal.height() - frame.y() - frame.height()
                                            : goal.x() + goal.width() - frame.x() - frame.width();
            const int pixels = int(std::lround(std::clamp(distance, -1e5, 1e5)));
            if (std::abs(pixels) <= 1 || tried.contains({window.id, isBelow}))
                continue;
            tried.insert({window.id, isBelow});
            return Border{window.id, isBelow, pixels};
        }
    }
    return std::nullopt;
}

void sortByPlace(QList<SwayWindow>& windows, const QHash<WindowId, QRectF>& wanted)
{
    std::ranges::stable_sort(windows, {}, [&wanted](const SwayWindow& window) {
        const QRectF frame = wanted.value(window.id);
        return std::pair(frame.x(), frame.y());
    });
}

void moveBorders(const QString& workspace, const QHash<WindowId, QRectF>& wanted,
                 SwayConnection& connection)
{
    QSet<std::pair<WindowId, bool>> tried;
    while (const auto tree = readSwayTree(connection)) {
        QList<SwayWindow> windows = wantedOn(workspace, *tree, wanted);
        sortByPlace(windows, wanted);
        const auto border = nextBorder(windows, wanted, tried);
        if (!border || !connection.run({border->command()}))
            return;
    }
}

} // namespace

QList<SwaySwap> swapsFor(const QList<SwayWindow>& tiled, const QHash<WindowId, QRectF>& wanted)
{
    QList<SwayWindow> places = tiled;
    std::ranges::stable_sort(places, {}, [](const SwayWindow& window) {
        return std::pair(window.frame.x(), window.frame.y());
    });
    QList<SwayWindow> order = tiled;
    sortByPlace(order, wanted);
    QList<SwaySwap> swaps;
    for (qsizetype place = 0; place < order.size(); ++place) {
        if (places.at(place).id == order.at(place).id)
            continue;
        const auto other =
            std::ranges::find(places, order.at(place).id, &SwayWindow::id) - places.begin();
        swaps.append({places.at(place).id, places.at(other).id});
        places.swapItemsAt(place, other);
    }
    return swaps;
}

void SwayTiling::arrange(const QList<SwayGoal>& goals, SwayConnection& connection)
{
    const QMutexLocker lock(&m_mutex);
    remember(goals);
    const QHash<WindowId, QRectF> frames = wanted();
    const auto isConcerned = [&goals](const WindowId& id) {
        const auto goal = std::ranges::find(goals, id, &SwayGoal::window);
        return goal != goals.end() && goal->states == WindowState::tiled;
    };
    const auto tree = frames.isEmpty() ? std::nullopt : readSwayTree(connection);
    if (!tree)
        return;
    QSet<QString> workspaces;
    for (const SwayWindow& window : tree->windows) {
        if (isConcerned(window.id))
            workspaces.insert(window.workspace);
    }
    for (const QString& workspace : std::as_const(workspaces)) {
        QByteArrayList commands;
        for (const auto& [first, second] : swapsFor(wantedOn(workspace, *tree, frames), frames))
            commands.append(criteriaOf(first) + "swap container with con_id " +
                            QByteArray::number(second.high()));
        if (connection.run(commands))
            moveBorders(workspace, frames, connection);
    }
}

void SwayTiling::remember(const QList<SwayGoal>& goals)
{
    const Time now = std::chrono::steady_clock::now();
    m_wishes.removeIf([now](const auto& wish) { return wish.value().since + wishDuration < now; });
    for (const SwayGoal& goal : goals) {
        if (goal.states == WindowState::tiled)
            m_wishes.insert(goal.window, {goal.frame, now});
        else
            m_wishes.remove(goal.window);
    }
}

QHash<WindowId, QRectF> SwayTiling::wanted() const
{
    QHash<WindowId, QRectF> frames;
    for (auto wish = m_wishes.cbegin(); wish != m_wishes.cend(); ++wish)
        frames.insert(wish.key(), wish.value().frame);
    return frames;
}

} // namespace trovell
