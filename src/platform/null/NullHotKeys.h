// SPDX-License-Identifier: MIT
//
// Stands in on a desktop that lends no keys: every combination is refused. Main thread.
#pragma once

#include "services/HotKeySystem.h"
#include "support/ReadyFuture.h"

namespace trovell {

class NullHotKeys final : public HotKeySystem {
public:
    QFuture<QList<quint32>> setHotKeys(const QList<HotKey>&, PressHandler) override
    {
        return readyFuture(QList<quint32>());
    }
};

} // namespace trovell
