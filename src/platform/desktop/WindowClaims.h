// SPDX-License-Identifier: MIT
//
// Who placed a window last. A placement that still watches its windows lets go of one that was
// placed again since. Any thread.
#pragma once

#include "windows/DesktopWindow.h"

#include <QHash>
#include <QMutex>

namespace trovell {

class WindowClaims {
public:
    using Claim = quint64;

    /// A number that no other placement has.
    [[nodiscard]] Claim newClaim()
    {
        const QMutexLocker lock(&m_mutex);
        return ++m_lastClaim;
    }

    /// Takes the window from every earlier placement.
    void take(WindowId window, Claim claim)
    {
        const QMutexLocker lock(&m_mutex);
        m_holders.insert(window, claim);
    }

    /// False once another placement took the window.
    [[nodiscard]] bool isHeld(WindowId window, Claim claim) const
    {
        const QMutexLocker lock(&m_mutex);
        return m_holders.value(window) == claim;
    }

    /// Lets go of everything that the placement still holds.
    void release(Claim claim)
    {
        const QMutexLocker lock(&m_mutex);
        m_holders.removeIf([claim](auto holder) { return holder.value() == claim; });
    }

private:
    mutable QMutex m_mutex;
    Claim m_lastClaim = 0;
    QHash<WindowId, Claim> m_holders;
};

} // namespace trovell
