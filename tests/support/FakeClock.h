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
    [[nodiscard]] QFuture<void> sleepFor(std::chrono::milliseconds duration) override;

    /// Moves the time and wakes everyone whose time has come.
    void advance(std::chrono::milliseconds duration);
    /// How many sleep now.
    [[nodiscard]] qsizetype sleeperCount() const { return m_sleepers.size(); }
    /// How many ever went to sleep.
    [[nodiscard]] int sleepCount() const { return m_sleepCount; }

private:
    struct Sleeper {
        qint64 wakeTime = 0;
        std::shared_ptr<QPromise<void>> promise;
    };

    QDateTime m_now = QDateTime::fromMSecsSinceEpoch(1'700'000'000'000).toUTC();
    qint64 m_elapsed = 0;
    int m_sleepCount = 0;
    QList<Sleeper> m_sleepers;
};

} // namespace trovell
