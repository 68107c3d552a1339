// SPDX-License-Identifier: MIT
//
// Opens the windows that an application has too few of, one at a time. Main thread.
#pragma once

#include "windows/RestorePlan.h"

#include <QString>

#include <chrono>
#include <functional>
#include <optional>

namespace trovell {

class MissingWindowOpener {
public:
    using Time = std::chrono::steady_clock::time_point;

    /// `openNewWindow` returns false when there is no way to.
    explicit MissingWindowOpener(std::function<bool()> openNewWindow)
        : m_openNewWindow(std::move(openNewWindow))
    {
    }

    /// After each attempt. Asks for a window once the application has come up and is at rest, and
    /// for the next one when that has come; never for more than were missing at first, never again
    /// after one did not come, and never when the application once had all its windows.
    void consider(const WindowRestoreAttempt& attempt, Time now);

    /// How many have come.
    [[nodiscard]] qint64 openedCount() const { return m_openedCount; }

private:
    void open(qint64 windowCount, Time now);

    std::function<bool()> m_openNewWindow;
    qint64 m_openedCount = 0;
    /// None before the first one is asked for.
    std::optional<qint64> m_missingCount;
    /// How many there were when the last one was asked for.
    qint64 m_countBefore = 0;
    Time m_askedAt;
    bool m_isOver = false;
};

} // namespace trovell
