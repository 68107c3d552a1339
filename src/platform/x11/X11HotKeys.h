// SPDX-License-Identifier: MIT
//
// Hot keys on an X11 desktop: passive key grabs on the root window, over a connection of their own
// that the event loop listens to. Main thread only.
//
// The keys are found on the layout in use, and anew whenever it changes: a registered hot key
// moves with its digit. It is silent while the layout does not have that digit, or while another
// program owns the place it moved to. The server releases everything when the process ends, however
// it ends. When the server is gone, all hot keys are silent and every registration is refused.
#pragma once

#include "platform/x11/X11Connection.h"
#include "platform/x11/X11KeyboardLayout.h"
#include "services/HotKeySystem.h"

#include <QSocketNotifier>

#include <map>
#include <memory>

namespace trovell {

class X11HotKeys final : public HotKeySystem {
public:
    /// Connects to the display of that name; an empty one means the session's own.
    explicit X11HotKeys(const QByteArray& displayName = {});
    Q_DISABLE_COPY_MOVE(X11HotKeys)

    void installPressHandler(PressHandler handler) override { m_handler = std::move(handler); }
    [[nodiscard]] std::optional<HotKeyReference> registerHotKey(quint32 number,
                                                                QKeyCombination keys) override;
    void unregisterHotKey(HotKeyReference reference) override;

private:
    struct HotKey {
        quint32 number = 0;
        QKeyCombination keys;
        /// None while the hot key is silent.
        std::optional<X11KeyCombination> grabbed = {};
    };

    [[nodiscard]] X11KeyboardLayout readLayout() const;
    void followLayout();

    [[nodiscard]] bool isGrabbed(const X11KeyCombination& combination) const;
    [[nodiscard]] bool grab(const X11KeyCombination& combination);
    void ungrab(const X11KeyCombination& combination);
    [[nodiscard]] QList<quint16> grabbedModifiers(const X11KeyCombination& combination) const;

    void processEvents();
    void processEventsSoon();
    void processKeyPress(const xcb_key_press_event_t& press);

    X11Connection m_connection;
    X11KeyboardLayout m_layout;
    /// In the order of registration.
    std::map<HotKeyReference, HotKey> m_hotKeys;
    HotKeyReference m_lastReference = 0;
    PressHandler m_handler;
    quint8 m_releasedKeycode = 0;
    xcb_timestamp_t m_releaseTime = 0;
    /// None without a server.
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace trovell
