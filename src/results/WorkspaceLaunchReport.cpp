// SPDX-License-Identifier: MIT

#include "results/WorkspaceLaunchReport.h"

#include <algorithm>
#include <initializer_list>

namespace trovell {

namespace {

using enum LaunchResultKind;

qint64 countKinds(const QList<LaunchResult>& results, std::initializer_list<LaunchResultKind> kinds)
{
    return std::ranges::count_if(results, [kinds](const LaunchResult& result) {
        return std::ranges::find(kinds, result.kind) != kinds.end();
    });
}

} // namespace

qint64 WorkspaceLaunchReport::attentionCount() const
{
    return countKinds(
        results, {skippedMissingResource, skippedNoPermission, windowNotFound, timedOut, failed});
}

qint64 WorkspaceLaunchReport::restoredWindowCount() const
{
    return countKinds(results, {restored});
}

qint64 WorkspaceLaunchReport::completedActionCount() const
{
    return results.size() - attentionCount();
}

qint64 WorkspaceLaunchReport::unresolvedCount() const
{
    return countKinds(results, {skippedMissingResource, windowNotFound, timedOut, failed});
}

qint64 WorkspaceLaunchReport::skippedCount() const
{
    return countKinds(results,
                      {skippedMissingResource, skippedNoPermission, windowNotFound, timedOut});
}

Message WorkspaceLaunchReport::summary() const
{
    const qint64 attention = attentionCount();
    const qint64 windows = restoredWindowCount();
    const qint64 completed = completedActionCount();
    if (attention == 0 && windows == 0)
        return {u"Completed %lld actions successfully."_key, completed};
    if (attention == 0)
        return {u"Completed %lld actions and restored %lld windows."_key, completed, windows};
    if (windows == 0)
        return {u"Completed %lld actions. Review %lld skipped or failed items."_key, completed,
                attention};
    return {u"Completed %lld actions. %lld windows restored. "
            "Review %lld skipped or failed items."_key,
            completed, windows, attention};
}

} // namespace trovell
