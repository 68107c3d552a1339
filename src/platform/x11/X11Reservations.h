// SPDX-License-Identifier: MIT
//
// What is read of displays only when something changed: the names of monitors and which windows
// reserve space. Part of a batch; one thread at a time.
#pragma once

#include "platform/x11/X11Connection.h"
#include "platform/x11/X11Monitors.h"
#include "platform/x11/X11WorkArea.h"

#include <QList>
#include <QSize>
#include <QStringList>

#include <vector>

namespace trovell {

struct DisplayDetails {
    QStringList monitorNames;
    QList<Strut> struts;
    /// The windows that reserve space or, as docks do, may begin to at any time.
    QList<quint32> panels;
    /// Those that window managers keep away from and that are not shown yet.
    QList<quint32> hidden;
};

class X11DetailRequest {
public:
    /// Borrows the connection.
    X11DetailRequest(const X11Connection& connection, const QList<X11Monitor>& monitors,
                     const QList<quint32>& windows);

    /// After `finishBatch`.
    [[nodiscard]] DisplayDetails receive(QSize screen) const;

private:
    struct Reservation {
        quint32 window = 0;
        xcb_get_property_cookie_t types;
        xcb_get_property_cookie_t partial;
        xcb_get_property_cookie_t whole;
        xcb_get_window_attributes_cookie_t attributes;
    };

    const X11Connection& m_connection;
    std::vector<X11MonitorNameRequest> m_names;
    std::vector<Reservation> m_reservations;
};

/// Whether any of these windows is shown.
class X11ShownRequest {
public:
    X11ShownRequest(const X11Connection& connection, const QList<quint32>& windows);

    /// After `finishBatch`.
    [[nodiscard]] bool receive() const;

private:
    const X11Connection& m_connection;
    QList<xcb_get_window_attributes_cookie_t> m_cookies;
};

} // namespace trovell
