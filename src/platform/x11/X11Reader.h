// SPDX-License-Identifier: MIT
//
// Answers what is asked about an X11 desktop, and brings windows forward. Has a connection and
// caches of its own; one thread, which may wait for the server.
#pragma once

#include "platform/desktop/ApplicationIdentity.h"
#include "platform/x11/X11Applications.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11Control.h"
#include "platform/x11/X11Displays.h"

namespace trovell {

class X11Reader {
public:
    /// Connects; an empty display name means that of the environment.
    X11Reader(const QByteArray& displayName, ApplicationIdentifier identify,
              BackgroundApplications background);

    /// Waits for the server twice as a rule, and once when no windows are read.
    [[nodiscard]] DesktopSnapshot answer(const DesktopQuestion& question);

    /// Those that `windowsToActivate` tells.
    void activate(const QStringList& identifiers);
    void activateWindow(xcb_window_t window) const;
    void restack(const QList<WindowId>& backToFront) const;
    void showVirtualDesktop(int index);

    [[nodiscard]] const X11Connection& connection() const { return m_connection; }

private:
    [[nodiscard]] DesktopSnapshot read(const DesktopQuestion& question, bool& areClassesOutdated);

    X11Connection m_connection;
    X11Control m_control;
    X11Applications m_applications;
    X11Displays m_displays;
    BackgroundApplications m_background;
    /// The virtual desktop that was last asked for, until something is activated.
    std::optional<int> m_desktopAskedFor;
};

} // namespace trovell
