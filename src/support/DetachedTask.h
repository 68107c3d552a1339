// SPDX-License-Identifier: MIT
//
// Work that may never return, such as a look at a file on a mount that does not answer. It has a
// thread of its own, which nobody waits for, not even the end of the program.
#pragma once

#include <QFuture>
#include <QPromise>

#include <memory>
#include <thread>
#include <type_traits>

namespace trovell {

/// `work` must own all that it uses. Any thread.
template <class Work> [[nodiscard]] auto runDetached(Work work)
{
    using Result = std::invoke_result_t<Work>;
    const auto promise = std::make_shared<QPromise<Result>>();
    promise->start();
    QFuture<Result> future = promise->future();
    std::thread([promise, work = std::move(work)] {
        promise->addResult(work());
        promise->finish();
    }).detach();
    return future;
}

} // namespace trovell
