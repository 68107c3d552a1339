// SPDX-License-Identifier: MIT
//
// The displays with what panels leave free of them. Remembers which windows reserve space, so that
// asking again costs one round trip and a few requests however many windows there are. One thread
// at a time.
#pragma once

#include "display/Display.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11Monitors.h"

#include <QList>
#include <QSize>

#include <memory>
#include <optional>

namespace trovell {

class X11Displays {
public:
    /// Borrows the connection.
    explicit X11Displays(const X11Connection& connection) : m_connection(connection) {}

    /// Part of a batch.
    class Request;
    [[nodiscard]] std::shared_ptr<const Request> request() const;
    /// After `finishBatch`: all displays as they are now, in the server's order.
    [[nodiscard]] QList<Display> receive(const Request& request);

    /// While all of this stays the same, no window begins to reserve space: a panel that appears
    /// changes the windows, and a window manager that grants a window space announces the
    /// work areas anew (EWMH section 3).
    struct Surroundings {
        QList<X11Monitor> monitors;
        QSize screen;
        QList<quint32> windows;
        /// Of all virtual desktops; empty when the window manager announces none.
        QList<quint32> workAreas;
        /// Of each display on the current virtual desktop, where the window manager tells
        /// (_GTK_WORKAREAS_D…).
        QList<quint32> ownAreas;

        bool operator==(const Surroundings&) const = default;
    };

private:
    const X11Connection& m_connection;
    Surroundings m_surroundings;
    /// The windows that reserve space or, as docks do, may begin to at any time.
    QList<quint32> m_panels;
    /// Those that window managers keep away from and that are not shown yet.
    QList<quint32> m_hidden;
    /// The property with the areas of each display, and the virtual desktop it is about.
    xcb_atom_t m_ownAreas = XCB_ATOM_NONE;
    std::optional<quint32> m_desktop;
};

} // namespace trovell
