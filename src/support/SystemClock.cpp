// SPDX-License-Identifier: MIT

#include "support/SystemClock.h"

#include <QPromise>
#include <QTimer>

#include <memory>

namespace trovell {

QDateTime SystemClock::now() const
{
    return QDateTime::currentDateTimeUtc();
}

QFuture<void> SystemClock::sleepFor(std::chrono::milliseconds duration)
{
    auto promise = std::make_shared<QPromise<void>>();
    promise->start();
    // A QTimer may fire up to one millisecond early; a deadline must never be met early.
    QTimer::singleShot(duration + std::chrono::milliseconds(1), Qt::PreciseTimer,
                       [promise] { promise->finish(); });
    return promise->future();
}

} // namespace trovell
