// SPDX-License-Identifier: MIT
//
// The clock of the running program: the system's wall clock and the event loop's precise timers.
#pragma once

#include "support/Clock.h"

namespace trovell {

class SystemClock final : public Clock {
public:
    [[nodiscard]] QDateTime now() const override;
    [[nodiscard]] std::chrono::steady_clock::time_point steadyNow() const override
    {
        return std::chrono::steady_clock::now();
    }
    [[nodiscard]] QFuture<void> sleepFor(std::chrono::milliseconds duration) override;
};

} // namespace trovell
