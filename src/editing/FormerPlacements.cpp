// SPDX-License-Identifier: MIT

#include "editing/FormerPlacements.h"

#include "model/WindowPlacement.h"
#include "windows/WindowMatching.h"

#include <algorithm>

namespace trovell {

namespace {

QHash<QUuid, qsizetype> positionsByRules(const QList<WindowPlacement*>& placements,
                                         const CapturedApplication& application)
{
    QList<WindowMatchRequest> requests;
    for (const WindowPlacement* placement : placements)
        requests.append({placement->id(), placement->windowTitleHint(), placement->windowRole(),
                         placement->windowSubrole(), placement->windowIndexHint()});
    QList<WindowMatchCandidate> candidates;
    for (const CapturedWindow& window : application.windows)
        candidates.append({window.windowIndex, window.windowTitle, window.role, window.subrole});
    return assignWindows(requests, candidates, {.applicationName = application.applicationName});
}

/// Of one application.
void addPairs(const QList<WindowPlacement*>& placements, const CapturedApplication& application,
              QHash<QUuid, WindowPlacement*>& former)
{
    QList<QUuid> windows;
    for (const CapturedWindow& window : application.windows)
        windows.append(window.id);
    const QHash<QUuid, qsizetype> positions = positionsByRules(placements, application);
    QList<WindowPlacement*> left;
    QList<QUuid> taken;
    for (WindowPlacement* placement : placements) {
        const auto position = positions.constFind(placement->id());
        if (position == positions.constEnd()) {
            left.append(placement);
            continue;
        }
        former.insert(windows.at(*position), placement);
        taken.append(windows.at(*position));
    }
    windows.removeIf([&taken](const QUuid& window) { return taken.contains(window); });
    for (qsizetype index = 0; index < std::min(left.size(), windows.size()); ++index)
        former.insert(windows.at(index), left.at(index));
}

} // namespace

QHash<QUuid, WindowPlacement*> formerPlacements(const QList<WindowPlacement*>& placements,
                                                const QList<CapturedApplication>& applications)
{
    QHash<QString, QList<WindowPlacement*>> byApplication;
    for (WindowPlacement* placement : placements)
        byApplication[placement->bundleIdentifier()].append(placement);
    QHash<QUuid, WindowPlacement*> former;
    for (const CapturedApplication& application : applications)
        addPairs(byApplication.value(application.bundleIdentifier), application, former);
    return former;
}

QList<WindowPlacement*> unseenPlacements(const QList<WindowPlacement*>& placements,
                                         const QList<CapturedApplication>& applications)
{
    QList<WindowPlacement*> unseen = placements;
    for (WindowPlacement* seen : formerPlacements(placements, applications))
        unseen.removeOne(seen);
    return unseen;
}

} // namespace trovell
