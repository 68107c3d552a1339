// SPDX-License-Identifier: MIT
//
// Stands in on a desktop that lends no keys: every combination is refused. Main thread.
#pragma once

#include "services/HotKeySystem.h"

namespace trovell {

class NullHotKeys final : public HotKeySystem {
public:
    void installPressHandler(PressHandler) override {}
    [[nodiscard]] std::optional<HotKeyReference> registerHotKey(quint32, QKeyCombination) override
    {
        return std::nullopt;
    }
    void unregisterHotKey(HotKeyReference) override {}
};

} // namespace trovell
