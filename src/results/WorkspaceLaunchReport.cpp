// SPDX-License-Identifier: MIT

#include "results/WorkspaceLaunchReport.h"

#include <algorithm>
#include <initializer_list>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

using enum LaunchResultKind;

qint64 countKinds(const QList<LaunchResult>& results, std::initializer_list<LaunchResultKind> kinds)
{
    return std::ranges::count_if(results, [kinds](const LaunchResult& result) {
        return std::ranges::find(kinds, result.kind) != kinds.end();
    });
}

} // namespace

QString LaunchSummary::formatted(QString sentence) const
{
    static const QString placeholder = u"%lld"_s;
    qsizetype from = 0;
    for (const qint64 value : values) {
        const qsizetype position = sentence.indexOf(placeholder, from);
        if (position < 0)
            break;
        const QString number = QString::number(value);
        sentence.replace(position, placeholder.size(), number);
        from = position + number.size();
    }
    return sentence;
}

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

LaunchSummary WorkspaceLaunchReport::summary() const
{
    const qint64 attention = attentionCount();
    const qint64 windows = restoredWindowCount();
    const qint64 completed = completedActionCount();
    if (attention == 0 && windows == 0)
        return {u"Completed %lld actions successfully."_s, {completed}};
    if (attention == 0)
        return {u"Completed %lld actions and restored %lld windows."_s, {completed, windows}};
    if (windows == 0)
        return {u"Completed %lld actions. Review %lld skipped or failed items."_s,
                {completed, attention}};
    return {u"Completed %lld actions. %lld windows restored. "
            "Review %lld skipped or failed items."_s,
            {completed, windows, attention}};
}

} // namespace trovell
