// SPDX-License-Identifier: MIT
//
// Which applications run, told from their windows. Remembers what it learned of a window, so that
// asking again costs one round trip and hardly any time. One thread.
#pragma once

#include "platform/desktop/ApplicationGrouping.h"
#include "platform/x11/X11Connection.h"

#include <QHash>
#include <QList>

#include <optional>
#include <vector>

#include <xcb/res.h>

namespace trovell {

class X11Applications {
public:
    /// `identify` may be empty; then no window has a desktop file. Borrows the connection.
    X11Applications(const X11Connection& connection, ApplicationIdentifier identify);

    /// Part of a batch.
    struct Request {
        xcb_get_property_cookie_t list;
        xcb_res_query_client_ids_cookie_t lastProcess;
    };
    [[nodiscard]] Request request() const;
    /// After `finishBatch`: the managed windows in the order in which they appeared.
    [[nodiscard]] const QList<IdentifiedWindow>& receive(const Request& request);

    /// Part of a batch: the classes of the windows that were received last.
    [[nodiscard]] std::vector<xcb_get_property_cookie_t> requestClasses() const;
    /// After `finishBatch`: whether programs changed any since their windows were identified, which
    /// have to be received again then.
    [[nodiscard]] bool haveClassesChanged(const std::vector<xcb_get_property_cookie_t>& request);

private:
    struct WindowRequest;
    /// Processes by client, see `X11Connection::clientOf`. Only those that the server knows.
    using ClientProcesses = QHash<quint32, qint32>;

    /// For the client of one window, or for all clients: that reply comes in many small pieces.
    [[nodiscard]] xcb_res_query_client_ids_cookie_t requestProcesses(xcb_window_t window) const;
    [[nodiscard]] ClientProcesses receiveProcesses(xcb_res_query_client_ids_cookie_t cookie) const;

    void update(const QList<quint32>& list);
    [[nodiscard]] QList<IdentifiedWindow> identify(const QList<quint32>& list,
                                                   const ClientProcesses& processes);
    /// None when the window is gone. `localProcess` is 0 when the server does not know it.
    [[nodiscard]] std::optional<IdentifiedWindow> receive(const WindowRequest& request,
                                                          xcb_window_t window, qint32 localProcess);

    const X11Connection& m_connection;
    ApplicationIdentifier m_identify;
    /// What was listed last, and what is known of it.
    QList<quint32> m_list;
    QList<IdentifiedWindow> m_windows;
    /// By window, as they were when it was identified.
    QHash<quint32, QByteArray> m_classes;
    /// Of the last window of `m_list`; 0 when it, or any other window, has none that is known.
    qint32 m_lastProcess = 0;
    bool m_isFirstReading = true;
};

} // namespace trovell
