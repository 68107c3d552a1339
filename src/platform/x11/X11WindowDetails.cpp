// SPDX-License-Identifier: MIT

#include "platform/x11/X11WindowDetails.h"

#include "platform/x11/X11WindowKind.h"

#include <xcb/res.h>

namespace trovell {

UntoldFacts X11WindowDetails::factsOf(quint32 window)
{
    if (!m_connection || !m_connection->isAlive())
        m_connection.emplace(QByteArray());
    const X11Connection& connection = *m_connection;
    const auto claim = connection.requestProperty(window, connection.atoms().netWmPid);
    const auto types = connection.requestProperty(window, connection.atoms().netWmWindowType);
    const auto owner = connection.requestProperty(window, XCB_ATOM_WM_TRANSIENT_FOR);
    qint32 process = 0;
    if (connection.server().hasClientIds) {
        const xcb_res_client_id_spec_t wanted = {window, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
        const auto reply = connection.reply<xcb_res_query_client_ids_reply>(
            xcb_res_query_client_ids(connection.get(), 1, &wanted));
        auto each = reply ? xcb_res_query_client_ids_ids_iterator(reply.get())
                          : xcb_res_client_id_value_iterator_t{};
        if (each.rem > 0 && each.data->length >= sizeof(quint32))
            process = static_cast<qint32>(*xcb_res_client_id_value_value(each.data));
    }
    const auto claimed = propertyNumbers(connection.reply(claim));
    return {process != 0 ? process : static_cast<qint32>(claimed.value(0)),
            windowKind(propertyNumbers(connection.reply(types)),
                       !propertyNumbers(connection.reply(owner)).isEmpty(), connection.atoms())};
}

} // namespace trovell
