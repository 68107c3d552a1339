// SPDX-License-Identifier: MIT

#include "windows/WindowPairing.h"

#include "windows/OrdinaryWindow.h"
#include "windows/StoredForms.h"
#include "windows/WindowMatching.h"
#include "windows/WindowPlacementSnapshot.h"

#include <algorithm>

namespace trovell {

namespace {

using namespace std::chrono_literals;

/// Programs that came up have their windows and their titles by then.
constexpr std::chrono::milliseconds restBeforeGuessing = 1s;

/// Ordinary windows that serve nobody yet, and how the rules see them.
struct FreeWindows {
    QList<const DesktopWindow*> windows;
    QList<WindowMatchCandidate> candidates;
};

FreeWindows freeWindows(const QList<DesktopWindow>& windows, const ApplicationWindows& known)
{
    const QSet<WindowId> taken(known.paired.begin(), known.paired.end());
    FreeWindows free;
    for (qsizetype index = 0; index < windows.size(); ++index) {
        const DesktopWindow& window = windows.at(index);
        if (!isOrdinaryWindow(window) || taken.contains(window.id))
            continue;
        free.windows.append(&window);
        free.candidates.append({index, window.title, storedRole(), storedSubrole(window.kind)});
    }
    return free;
}

QList<WindowPlacementSnapshot> withoutWindow(const QList<WindowPlacementSnapshot>& placements,
                                             const ApplicationWindows& known)
{
    QList<WindowPlacementSnapshot> left = placements;
    left.removeIf([&known](const auto& each) { return known.paired.contains(each.id); });
    return left;
}

QList<WindowMatchRequest> requestsOf(const QList<WindowPlacementSnapshot>& placements)
{
    QList<WindowMatchRequest> requests;
    for (const WindowPlacementSnapshot& placement : placements)
        requests.append({placement.id, placement.windowTitleHint, placement.windowRole,
                         placement.windowSubrole, placement.windowIndexHint});
    return requests;
}

/// Whether the windows and their titles have been the same for so long.
bool isAtRest(const QList<DesktopWindow>& windows, std::chrono::steady_clock::time_point now,
              ApplicationWindows& known)
{
    QList<std::pair<WindowId, QString>> seen;
    for (const DesktopWindow& window : windows)
        seen.append({window.id, window.title.value_or(QString())});
    if (seen != known.seen) {
        known.seen = seen;
        known.seenSince = now;
    }
    return now - known.seenSince >= restBeforeGuessing;
}

void pairByRules(const QList<WindowPlacementSnapshot>& placements,
                 const QList<DesktopWindow>& windows, bool takesWords, ApplicationWindows& known)
{
    const QList<WindowPlacementSnapshot> left = withoutWindow(placements, known);
    if (left.isEmpty())
        return;
    const FreeWindows free = freeWindows(windows, known);
    const MatchingRules rules{takesWords, left.first().applicationName};
    const auto assignments = assignWindows(requestsOf(left), free.candidates, rules);
    for (const auto& [placement, position] : assignments.asKeyValueRange())
        known.paired.insert(placement, free.windows.at(position)->id);
}

/// In the order in which they were saved, windows in the order in which they appeared.
void pairWhatIsLeft(const QList<WindowPlacementSnapshot>& placements,
                    const QList<DesktopWindow>& windows, ApplicationWindows& known)
{
    QList<WindowPlacementSnapshot> left = withoutWindow(placements, known);
    std::ranges::stable_sort(left, {}, &WindowPlacementSnapshot::windowIndexHint);
    FreeWindows free = freeWindows(windows, known);
    for (const WindowPlacementSnapshot& placement : std::as_const(left)) {
        const auto fits = [&](const DesktopWindow* window) {
            const auto kind = placement.windowSubrole;
            return !known.earlier.contains(window->id) &&
                   (!kind || kind == storedSubrole(window->kind));
        };
        const auto found = std::ranges::find_if(free.windows, fits);
        if (found == free.windows.end())
            continue;
        known.paired.insert(placement.id, (*found)->id);
        free.windows.erase(found);
    }
}

} // namespace

void pairWindows(const QList<WindowPlacementSnapshot>& placements,
                 const QList<DesktopWindow>& windows, std::chrono::steady_clock::time_point now,
                 ApplicationWindows& known)
{
    const bool atRest = isAtRest(windows, now, known);
    pairByRules(placements, windows, atRest, known);
    if (atRest)
        pairWhatIsLeft(placements, windows, known);
}

} // namespace trovell
