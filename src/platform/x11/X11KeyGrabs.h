// SPDX-License-Identifier: MIT
//
// Passive key grabs on the root window of an X11 desktop, over a connection of their own that the
// event loop listens to. One thread, which may wait for the server.
//
// The keys are found on the layout in use, and anew whenever it changes: a grab moves with its
// digit. It is silent while the layout does not have that digit, or while another program owns the
// place it moved to. The server releases everything when the process ends, however it ends. When
// the server is gone, all keys are silent and every grab is refused.
#pragma once

#include "platform/x11/X11Connection.h"
#include "platform/x11/X11KeyboardLayout.h"
#include "services/HotKeySystem.h"

#include <QSocketNotifier>

#include <memory>
#include <vector>

namespace trovell {

class X11KeyGrabs final : public QObject {
    Q_OBJECT

public:
    /// Connects to the display of that name; an empty one means the session's own.
    explicit X11KeyGrabs(const QByteArray& displayName);

    /// Replaces all grabs. The numbers of those that were granted; `handler` is called on this
    /// thread.
    [[nodiscard]] QList<quint32> replace(const QList<HotKey>& hotKeys,
                                         HotKeySystem::PressHandler handler);

private:
    struct Grab {
        HotKey hotKey;
        /// None while it is silent.
        std::optional<X11KeyCombination> grabbed = {};
    };

    [[nodiscard]] X11KeyboardLayout readLayout() const;
    void followLayout();

    [[nodiscard]] bool isGrabbed(const X11KeyCombination& combination) const;
    [[nodiscard]] bool grab(const X11KeyCombination& combination);
    void ungrab(const X11KeyCombination& combination);
    void ungrabAll();
    [[nodiscard]] QList<quint16> grabbedModifiers(const X11KeyCombination& combination) const;

    void processEvents();
    void processEventsSoon();
    void processKeyPress(const xcb_key_press_event_t& press);

    X11Connection m_connection;
    X11KeyboardLayout m_layout;
    std::vector<Grab> m_grabs;
    HotKeySystem::PressHandler m_handler;
    quint8 m_releasedKeycode = 0;
    xcb_timestamp_t m_releaseTime = 0;
    /// None without a server.
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace trovell
