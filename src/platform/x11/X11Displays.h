// The displays as the X server describes them (RandR 1.5 monitors). Any thread, as long as the
// connection lives.
#pragma once

#include "display/DisplaySnapshot.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11WindowGeometry.h"

#include <QList>
#include <QPoint>

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
};

/// A request for the monitors that goes out with a batch of others. On a server without RandR 1.5
/// the whole X screen counts as one monitor without a name.
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

/// The main display: the primary one, else the first. None when there are no monitors.
[[nodiscard]] std::optional<qsizetype> mainMonitor(const QList<X11Monitor>& monitors);

/// The top left of the main display in root pixels, which is where accessibility coordinates
/// begin.
[[nodiscard]] QPoint accessibilityOrigin(const QList<X11Monitor>& monitors);

/// All displays in the server's order, in two round trips.
[[nodiscard]] QList<DisplaySnapshot> readDisplays(const X11Connection& connection);

} // namespace trovell
