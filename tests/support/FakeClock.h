// SPDX-License-Identifier: MIT
//
// A clock that stands still until a test moves it. Sleepers wake in the order of their times.
#pragma once

#include "support/Clock.h"

#include <QList>
#include <QPromise>

#include <memory>

namespace trovell {

class FakeClock final : public Clock {
public:
    [[nodiscard]] QDateTime now() const override { return m_now; }
    [[nodiscard]] std::chrono::steady_clock::time_point steadyNow() const override
    {
        return std::chrono::steady_clock::time_point(std::chrono::milliseconds(m_elapsed));
    }
    [[nodiscard]] QFuture<void> sleepFor(std::chrono::milliseconds duration) override;

    /// Moves the time and wakes everyone whose time has come.
    void advance(std::chrono::milliseconds duration);
    /// As when the user sets it.
    void setWallClock(const QDateTime& now) { m_now = now; }
    /// How many sleep now and wake within that time.
    [[nodiscard]] qsizetype sleeperCount(std::chrono::milliseconds within) const;
    /// How often anyone went to sleep for so long.
    [[nodiscard]] qsizetype sleepCount(std::chrono::milliseconds duration) const
    {
        return m_sleeps.count(duration);
    }

private:
    struct Sleeper {
        qint64 wakeTime = 0;
        std::shared_ptr<QPromise<void>> promise;
    };

    QDateTime m_now = QDateTime::fromMSecsSinceEpoch(1'700'000'000'000).toUTC();
    qint64 m_elapsed = 0;
    QList<std::chrono::milliseconds> m_sleeps;
    QList<Sleeper> m_sleepers;
};

} // namespace trovell
