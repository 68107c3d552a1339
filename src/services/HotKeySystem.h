// SPDX-License-Identifier: MIT
//
// The desktop's system-wide hot keys: key combinations that reach this program whichever
// application is in front. Main thread; nothing waits for the desktop.
#pragma once

#include <QFuture>
#include <QKeyCombination>
#include <QList>

#include <functional>

namespace trovell {

struct HotKey {
    /// What its presses are reported under.
    quint32 number = 0;
    QKeyCombination keys;
};

class HotKeySystem {
public:
    /// Called on the main thread, from the event loop.
    using PressHandler = std::function<void(quint32 number)>;

    virtual ~HotKeySystem() = default;

    /// Gives all hot keys of before back, then registers these, in their order. The handler is
    /// called once per press, however long the keys are held. Answers with the numbers of those
    /// that were granted: the others are taken, be it by another program or by an earlier one of
    /// the list, or cannot be hot keys on this desktop.
    virtual QFuture<QList<quint32>> setHotKeys(const QList<HotKey>& hotKeys,
                                               PressHandler handler) = 0;
};

} // namespace trovell
