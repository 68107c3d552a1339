// SPDX-License-Identifier: MIT
//
// Waiting for what may never come: a future that finishes with the first of two. Main thread.
#pragma once

#include <QFuture>
#include <QFutureWatcher>
#include <QObject>
#include <QPromise>

#include <memory>

namespace trovell {

/// Finishes when `work` or `limit` does; neither is cancelled. True when the work is done.
template <class Result>
[[nodiscard]] QFuture<bool> finishedBefore(const QFuture<Result>& work, const QFuture<void>& limit)
{
    const auto promise = std::make_shared<QPromise<bool>>();
    promise->start();
    auto* watchers = new QObject;
    const auto end = [promise, watchers](bool isDone) {
        if (promise->future().isFinished())
            return;
        promise->addResult(isDone);
        promise->finish();
        watchers->deleteLater();
    };
    auto* ofWork = new QFutureWatcher<Result>(watchers);
    auto* ofLimit = new QFutureWatcher<void>(watchers);
    QObject::connect(ofWork, &QFutureWatcherBase::finished, watchers, [end] { end(true); });
    QObject::connect(ofLimit, &QFutureWatcherBase::finished, watchers, [end] { end(false); });
    ofWork->setFuture(work);
    ofLimit->setFuture(limit);
    return promise->future();
}

} // namespace trovell
