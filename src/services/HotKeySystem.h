// SPDX-License-Identifier: MIT
//
// The desktop's system-wide hot keys: key combinations that reach this program whichever
// application is in front. Main thread only.
#pragma once

#include <QKeyCombination>

#include <functional>
#include <optional>

namespace trovell {

/// Identifies a registered hot key to the adapter that registered it; means nothing to anyone else.
using HotKeyReference = quint64;

class HotKeySystem {
public:
    using PressHandler = std::function<void(quint32 number)>;

    virtual ~HotKeySystem() = default;

    /// Called with the number of the hot key, once per press, however long the keys are held.
    /// Replaces the handler before; an empty one removes it.
    virtual void installPressHandler(PressHandler handler) = 0;

    /// Registers a combination, to be reported under `number`. None when it is taken, be it by
    /// another program or by a hot key registered here before, or cannot be a hot key on this
    /// desktop.
    [[nodiscard]] virtual std::optional<HotKeyReference> registerHotKey(quint32 number,
                                                                        QKeyCombination keys) = 0;

    /// Gives the combination back to everyone.
    virtual void unregisterHotKey(HotKeyReference reference) = 0;
};

} // namespace trovell
