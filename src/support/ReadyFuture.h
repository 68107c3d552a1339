// SPDX-License-Identifier: MIT
//
// A future that has its value already, for operations that need not wait. Any thread.
#pragma once

#include <QFuture>
#include <QPromise>

#include <utility>

namespace trovell {

template <class T> [[nodiscard]] QFuture<T> readyFuture(T value)
{
    QPromise<T> promise;
    promise.start();
    promise.addResult(std::move(value));
    promise.finish();
    return promise.future();
}

[[nodiscard]] inline QFuture<void> readyFuture()
{
    QPromise<void> promise;
    promise.start();
    promise.finish();
    return promise.future();
}

} // namespace trovell
