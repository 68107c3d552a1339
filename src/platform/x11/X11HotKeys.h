// SPDX-License-Identifier: MIT
//
// Hot keys on an X11 desktop. Main thread; the server is talked to on a thread of its own, which
// sleeps until a key is pressed.
#pragma once

#include "services/HotKeySystem.h"

#include <QThread>

#include <memory>

namespace trovell {

class X11KeyGrabs;

class X11HotKeys final : public HotKeySystem {
public:
    /// Connects to the display of that name; an empty one means the session's own.
    explicit X11HotKeys(const QByteArray& displayName = {});
    ~X11HotKeys() override;
    Q_DISABLE_COPY_MOVE(X11HotKeys)

    QFuture<QList<quint32>> setHotKeys(const QList<HotKey>& hotKeys, PressHandler handler) override;

private:
    QThread m_thread;
    /// Lives on the thread; null until it has connected.
    std::unique_ptr<X11KeyGrabs> m_grabs;
    /// Where presses are delivered to.
    QObject m_context;
    /// Whose things are done on the thread.
    std::unique_ptr<QObject> m_worker;
};

} // namespace trovell
