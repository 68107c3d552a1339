// SPDX-License-Identifier: MIT

#include "launch/MissingWindowOpener.h"

namespace trovell {

namespace {

/// A window that takes longer is not coming.
constexpr std::chrono::seconds longestOpeningOfWindow{6};

} // namespace

void MissingWindowOpener::consider(const WindowRestoreAttempt& attempt, Time now)
{
    const qint64 missing = attempt.wantedWindowCount - attempt.windowCount;
    if (m_isOver || attempt.windowCount == 0)
        return;
    if (m_missingCount && attempt.windowCount > m_countBefore) {
        ++m_openedCount;
        m_isOver = missing <= 0 || m_openedCount >= *m_missingCount;
        if (!m_isOver)
            open(attempt.windowCount, now);
    } else if (m_missingCount) {
        m_isOver = now - m_askedAt > longestOpeningOfWindow;
    } else if (missing <= 0) {
        m_isOver = true;
    } else if (attempt.isAtRest && attempt.opensMissingWindows) {
        m_missingCount = missing;
        open(attempt.windowCount, now);
    }
}

void MissingWindowOpener::open(qint64 windowCount, Time now)
{
    m_countBefore = windowCount;
    m_askedAt = now;
    m_isOver = !m_openNewWindow();
}

} // namespace trovell
