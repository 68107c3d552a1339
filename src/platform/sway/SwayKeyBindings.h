// SPDX-License-Identifier: MIT
//
// Key bindings at run time, which sway reports as events. It lets anybody bind any key, so keys of
// the user's configuration are refused here. Reloading the configuration drops all bindings; they
// are made again then, as far as the new configuration leaves them free. One thread with an event
// loop; waits for sway a moment at a time. When sway is gone, all keys are silent and refused.
#pragma once

#include "platform/sway/SwayConfiguration.h"
#include "platform/sway/SwayConnection.h"
#include "services/HotKeySystem.h"

#include <QObject>
#include <QSocketNotifier>

#include <memory>

namespace trovell {

class SwayKeyBindings final : public QObject {
    Q_OBJECT

public:
    explicit SwayKeyBindings(const QByteArray& socketPath);
    ~SwayKeyBindings() override;

    /// Replaces all bindings. The numbers of those that were granted; `handler` is called on this
    /// thread.
    [[nodiscard]] QList<quint32> replace(const QList<HotKey>& hotKeys,
                                         HotKeySystem::PressHandler handler);

private:
    struct Binding {
        quint32 number = 0;
        SwayKey key;
    };

    [[nodiscard]] SwayConfiguration configuration();
    bool bind(const Binding& binding);
    void unbind(const Binding& binding);
    void bindAgain();
    void processEvents();

    SwayConnection m_connection;
    SwayConnection m_events;
    QList<Binding> m_bindings;
    HotKeySystem::PressHandler m_handler;
    /// None without a server.
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace trovell
