// SPDX-License-Identifier: MIT
//
// The monitors as the X server describes them (RandR 1.5), asked for as part of a batch. Any
// thread, as long as the connection lives.
#pragma once

#include "platform/x11/X11Connection.h"
#include "platform/x11/X11WindowGeometry.h"

#include <QList>
#include <QString>

#include <optional>

#include <xcb/randr.h>

namespace trovell {

struct X11Monitor {
    /// The name of the connector, as a rule.
    xcb_atom_t name = 0;
    bool isPrimary = false;
    /// Root pixels.
    PixelRectangle area;
    QList<xcb_randr_output_t> outputs;

    bool operator==(const X11Monitor&) const = default;
};

/// On a server without RandR 1.5 the whole X screen counts as one monitor without a name.
class X11MonitorRequest {
public:
    explicit X11MonitorRequest(const X11Connection& connection);
    /// After `finishBatch`. Empty when the server is gone or no display is on.
    [[nodiscard]] QList<X11Monitor> receive() const;

private:
    const X11Connection& m_connection;
    xcb_randr_get_monitors_cookie_t m_monitors = {};
    xcb_get_geometry_cookie_t m_screen = {};
};

/// What people call a monitor: its make and model, else the name of its connector.
class X11MonitorNameRequest {
public:
    X11MonitorNameRequest(const X11Connection& connection, const X11Monitor& monitor);
    /// After `finishBatch`.
    [[nodiscard]] QString receive(const X11Connection& connection) const;

private:
    xcb_get_atom_name_cookie_t m_connector;
    QList<xcb_randr_get_output_property_cookie_t> m_identifications;
};

/// The main display: the primary one, else the first. None when there are no monitors.
[[nodiscard]] std::optional<qsizetype> mainMonitor(const QList<X11Monitor>& monitors);

} // namespace trovell
