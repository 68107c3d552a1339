// SPDX-License-Identifier: MIT
//
// Time as the services see it, so that every poll and deadline can be tested without waiting.
// Used on the main thread.
#pragma once

#include <QDateTime>
#include <QFuture>

#include <chrono>

namespace trovell {

class Clock {
public:
    virtual ~Clock() = default;

    /// The wall clock, in UTC. May jump when the user or the network sets the time.
    [[nodiscard]] virtual QDateTime now() const = 0;

    /// Never jumps, and stands still while the machine sleeps.
    [[nodiscard]] virtual std::chrono::steady_clock::time_point steadyNow() const = 0;

    /// Finishes on the main thread after `duration` of monotonic time, never earlier.
    /// Cancelling the future ends the wait at once.
    [[nodiscard]] virtual QFuture<void> sleepFor(std::chrono::milliseconds duration) = 0;
};

} // namespace trovell
