// SPDX-License-Identifier: MIT

#include "platform/x11/X11Compositor.h"

#include "platform/x11/X11Connection.h"

namespace trovell {

namespace {

struct Disconnect {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
};

} // namespace

bool hasX11Compositor()
{
    int screen = 0;
    const std::unique_ptr<xcb_connection_t, Disconnect> connection(xcb_connect(nullptr, &screen));
    const QByteArray name = "_NET_WM_CM_S" + QByteArray::number(screen);
    const X11Reply<xcb_intern_atom_reply_t> atom(xcb_intern_atom_reply(
        connection.get(),
        xcb_intern_atom(connection.get(), true, quint16(name.size()), name.constData()), nullptr));
    if (!atom || atom->atom == XCB_ATOM_NONE)
        return false;
    const X11Reply<xcb_get_selection_owner_reply_t> owner(xcb_get_selection_owner_reply(
        connection.get(), xcb_get_selection_owner(connection.get(), atom->atom), nullptr));
    return owner && owner->owner != XCB_WINDOW_NONE;
}

} // namespace trovell
