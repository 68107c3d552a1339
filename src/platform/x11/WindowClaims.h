// SPDX-License-Identifier: MIT
//
// Who placed a window last. A placement that still watches its windows lets go of one that was
// placed again since. Any thread, without locks.
#pragma once

#include <QtGlobal>

#include <array>
#include <atomic>

namespace trovell {

class WindowClaims {
public:
    using Claim = quint32;

    /// A number that no other placement has.
    [[nodiscard]] Claim newClaim() { return ++m_lastClaim; }

    /// Takes the window from every earlier placement.
    void take(quint32 window, Claim claim) { slot(window) = claim; }

    /// False once another placement took the window. Windows share slots, so it may be false
    /// without reason; then a watch ends early.
    [[nodiscard]] bool isHeld(quint32 window, Claim claim) const
    {
        return m_slots[window % slotCount] == claim;
    }

private:
    /// Prime: the numbers of windows differ in regular steps.
    static constexpr quint32 slotCount = 1021;

    std::atomic<Claim>& slot(quint32 window) { return m_slots[window % slotCount]; }

    std::atomic<Claim> m_lastClaim = 0;
    std::array<std::atomic<Claim>, slotCount> m_slots = {};
};

} // namespace trovell
