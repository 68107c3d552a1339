// SPDX-License-Identifier: MIT

#include "support/SystemClock.h"

#include <QFutureWatcher>
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
    const auto promise = std::make_shared<QPromise<void>>();
    promise->start();
    auto* timer = new QTimer;
    const auto end = [promise, timer] {
        promise->finish();
        timer->deleteLater();
    };
    auto* watcher = new QFutureWatcher<void>(timer);
    QObject::connect(watcher, &QFutureWatcherBase::canceled, timer, end);
    watcher->setFuture(promise->future());
    timer->callOnTimeout(end);
    timer->setSingleShot(true);
    timer->setTimerType(Qt::PreciseTimer);
    // A QTimer may fire up to one millisecond early; a deadline must never be met early.
    timer->start(duration + std::chrono::milliseconds(1));
    return promise->future();
}

} // namespace trovell
