// SPDX-License-Identifier: MIT
//
// Which applications run, told from their windows. Remembers what it learned of a window, so that
// asking again costs one round trip and hardly any time. Main thread.
#pragma once

#include "platform/desktop/ApplicationIdentity.h"
#include "platform/x11/X11Connection.h"
#include "windows/WindowSystem.h"

#include <QHash>
#include <QList>

#include <optional>

namespace trovell {

/// One window of the window manager's list and the application that it belongs to.
struct IdentifiedWindow {
    WindowHandle handle = 0;
    qint32 processIdentifier = 0;
    /// Not so for panels, desktops and menus, which show that their application runs and are no
    /// windows of it.
    bool isWindow = false;
    /// The user works with it: a standard window or a dialog.
    bool isOrdinary = false;
    /// The identifier may be empty; such windows belong together by their process.
    ApplicationIdentity application;

    bool operator==(const IdentifiedWindow&) const = default;
};

/// One application per identifier, in the order in which their first windows stand in the list.
[[nodiscard]] QList<RunningApplication> groupWindows(const QList<IdentifiedWindow>& windows);

/// The application of a window that no desktop file fits: its class, and the executable of its
/// process.
[[nodiscard]] ApplicationIdentity identityWithoutDesktopFile(const WindowIdentity& window);

class X11Applications {
public:
    /// `identify` may be empty; then no window has a desktop file. Borrows the connection.
    X11Applications(const X11Connection& connection, ApplicationIdentifier identify);

    /// The managed windows in the order in which they appeared.
    [[nodiscard]] QList<IdentifiedWindow> read();

private:
    struct WindowRequest;
    /// Processes by client, see `X11Connection::clientOf`. Only those that the server knows.
    using ClientProcesses = QHash<quint32, qint32>;

    void update(const QList<quint32>& list);
    [[nodiscard]] QList<IdentifiedWindow> identify(const QList<quint32>& list,
                                                   const ClientProcesses& processes) const;
    /// None when the window is gone. `localProcess` is 0 when the server does not know it.
    [[nodiscard]] std::optional<IdentifiedWindow>
    receive(const WindowRequest& request, xcb_window_t window, qint32 localProcess) const;

    const X11Connection& m_connection;
    ApplicationIdentifier m_identify;
    /// What was listed last, and what is known of it.
    QList<quint32> m_list;
    QList<IdentifiedWindow> m_windows;
    /// Of the last window of `m_list`; 0 when it, or any other window, has none that is known.
    qint32 m_lastProcess = 0;
    bool m_isFirstReading = true;
};

} // namespace trovell
