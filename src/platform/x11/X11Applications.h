// Which applications run, told from their windows. Remembers what it learned of a window, so that
// asking again costs one round trip and hardly any time. Main thread.
#pragma once

#include "platform/freedesktop/ApplicationIdentity.h"
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
    struct ListedWindow {
        xcb_window_t window = 0;
        /// 0 when the server does not tell. Numbers of windows are used again, so what is known of
        /// a window holds only together with the process.
        qint32 processIdentifier = 0;
    };

    struct WindowRequest;

    [[nodiscard]] QList<ListedWindow> readList() const;
    [[nodiscard]] bool isKnown(const ListedWindow& listed) const;
    void identifyUnknown(const QList<ListedWindow>& list);
    /// None when the window is gone.
    [[nodiscard]] std::optional<IdentifiedWindow> receive(const ListedWindow& listed,
                                                          const WindowRequest& request) const;
    void forgetClosed(const QList<ListedWindow>& list);

    const X11Connection& m_connection;
    ApplicationIdentifier m_identify;
    QHash<xcb_window_t, IdentifiedWindow> m_known;
    bool m_isFirstReading = true;
};

} // namespace trovell
