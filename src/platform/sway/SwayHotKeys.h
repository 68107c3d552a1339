// SPDX-License-Identifier: MIT
//
// Hot keys under sway. Main thread; sway is talked to on a thread of its own, which sleeps until a
// key is pressed or the workspace changes.
#pragma once

#include "services/HotKeySystem.h"

#include <QThread>

#include <memory>

namespace trovell {

class SwayKeyBindings;

class SwayHotKeys final : public HotKeySystem {
public:
    explicit SwayHotKeys(const QByteArray& socketPath);
    /// Gives all keys back.
    ~SwayHotKeys() override;
    Q_DISABLE_COPY_MOVE(SwayHotKeys)

    QFuture<QList<quint32>> setHotKeys(const QList<HotKey>& hotKeys, PressHandler handler) override;

private:
    QThread m_thread;
    /// Lives on the thread; null until it has connected.
    std::unique_ptr<SwayKeyBindings> m_bindings;
    /// Where presses are delivered to.
    QObject m_context;
    /// Whose things are done on the thread.
    std::unique_ptr<QObject> m_worker;
};

} // namespace trovell
