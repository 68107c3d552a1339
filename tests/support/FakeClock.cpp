// SPDX-License-Identifier: MIT

#include "support/FakeClock.h"

namespace trovell {

QFuture<void> FakeClock::sleepFor(std::chrono::milliseconds duration)
{
    auto promise = std::make_shared<QPromise<void>>();
    promise->start();
    m_sleepers.append({m_elapsed + duration.count(), promise});
    m_sleeps.append(duration);
    return promise->future();
}

qsizetype FakeClock::sleeperCount(std::chrono::milliseconds within) const
{
    return std::ranges::count_if(m_sleepers, [&](const Sleeper& sleeper) {
        return sleeper.wakeTime <= m_elapsed + within.count() &&
               !sleeper.promise->future().isCanceled();
    });
}

void FakeClock::advance(std::chrono::milliseconds duration)
{
    m_now = m_now.addMSecs(duration.count());
    m_elapsed += duration.count();
    std::ranges::stable_sort(m_sleepers, {}, &Sleeper::wakeTime);
    while (!m_sleepers.isEmpty() && m_sleepers.first().wakeTime <= m_elapsed)
        m_sleepers.takeFirst().promise->finish();
}

} // namespace trovell
