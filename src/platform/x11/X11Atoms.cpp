// SPDX-License-Identifier: MIT

#include "platform/x11/X11Atoms.h"

#include <xcb/xcb.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <iterator>
#include <string>
#include <string_view>

namespace trovell {

namespace {

struct NamedAtom {
    std::string_view name;
    xcb_atom_t X11Atoms::* member;
};

constexpr NamedAtom namedAtoms[] = {
    {"_NET_SUPPORTED", &X11Atoms::netSupported},
    {"_NET_SUPPORTING_WM_CHECK", &X11Atoms::netSupportingWmCheck},
    {"_NET_CLIENT_LIST", &X11Atoms::netClientList},
    {"_NET_CLIENT_LIST_STACKING", &X11Atoms::netClientListStacking},
    {"_NET_CURRENT_DESKTOP", &X11Atoms::netCurrentDesktop},
    {"_NET_NUMBER_OF_DESKTOPS", &X11Atoms::netNumberOfDesktops},
    {"_NET_DESKTOP_NAMES", &X11Atoms::netDesktopNames},
    {"_NET_WORKAREA", &X11Atoms::netWorkarea},
    {"_NET_ACTIVE_WINDOW", &X11Atoms::netActiveWindow},
    {"_NET_MOVERESIZE_WINDOW", &X11Atoms::netMoveresizeWindow},
    {"_NET_RESTACK_WINDOW", &X11Atoms::netRestackWindow},
    {"_NET_WM_NAME", &X11Atoms::netWmName},
    {"_NET_WM_PID", &X11Atoms::netWmPid},
    {"_NET_WM_STATE", &X11Atoms::netWmState},
    {"_NET_WM_STATE_HIDDEN", &X11Atoms::netWmStateHidden},
    {"_NET_WM_STATE_FULLSCREEN", &X11Atoms::netWmStateFullscreen},
    {"_NET_WM_STATE_MAXIMIZED_HORZ", &X11Atoms::netWmStateMaximizedHorz},
    {"_NET_WM_STATE_MAXIMIZED_VERT", &X11Atoms::netWmStateMaximizedVert},
    {"_NET_WM_STATE_SHADED", &X11Atoms::netWmStateShaded},
    {"_NET_WM_STATE_ABOVE", &X11Atoms::netWmStateAbove},
    {"_NET_WM_STATE_SKIP_TASKBAR", &X11Atoms::netWmStateSkipTaskbar},
    {"_NET_WM_DESKTOP", &X11Atoms::netWmDesktop},
    {"_NET_WM_STRUT", &X11Atoms::netWmStrut},
    {"_NET_WM_STRUT_PARTIAL", &X11Atoms::netWmStrutPartial},
    {"_NET_FRAME_EXTENTS", &X11Atoms::netFrameExtents},
    {"WM_STATE", &X11Atoms::wmState},
    {"_NET_WM_WINDOW_TYPE", &X11Atoms::netWmWindowType},
    {"_NET_WM_WINDOW_TYPE_DESKTOP", &X11Atoms::typeDesktop},
    {"_NET_WM_WINDOW_TYPE_DOCK", &X11Atoms::typeDock},
    {"_NET_WM_WINDOW_TYPE_TOOLBAR", &X11Atoms::typeToolbar},
    {"_NET_WM_WINDOW_TYPE_MENU", &X11Atoms::typeMenu},
    {"_NET_WM_WINDOW_TYPE_UTILITY", &X11Atoms::typeUtility},
    {"_NET_WM_WINDOW_TYPE_SPLASH", &X11Atoms::typeSplash},
    {"_NET_WM_WINDOW_TYPE_DIALOG", &X11Atoms::typeDialog},
    {"_NET_WM_WINDOW_TYPE_DROPDOWN_MENU", &X11Atoms::typeDropdownMenu},
    {"_NET_WM_WINDOW_TYPE_POPUP_MENU", &X11Atoms::typePopupMenu},
    {"_NET_WM_WINDOW_TYPE_TOOLTIP", &X11Atoms::typeTooltip},
    {"_NET_WM_WINDOW_TYPE_NOTIFICATION", &X11Atoms::typeNotification},
    {"_NET_WM_WINDOW_TYPE_COMBO", &X11Atoms::typeCombo},
    {"_NET_WM_WINDOW_TYPE_DND", &X11Atoms::typeDragAndDrop},
    {"_NET_WM_WINDOW_TYPE_NORMAL", &X11Atoms::typeNormal},
    {"_GTK_APPLICATION_ID", &X11Atoms::gtkApplicationId},
    {"_GTK_FRAME_EXTENTS", &X11Atoms::gtkFrameExtents},
    {"UTF8_STRING", &X11Atoms::utf8String},
    {"COMPOUND_TEXT", &X11Atoms::compoundText},
    {"EDID", &X11Atoms::edid},
};

} // namespace

X11Atoms internAtoms(xcb_connection_t* connection, int screen)
{
    const auto intern = [connection](std::string_view name) {
        return xcb_intern_atom(connection, 0, static_cast<uint16_t>(name.size()), name.data());
    };
    std::array<xcb_intern_atom_cookie_t, std::size(namedAtoms)> cookies;
    std::ranges::transform(namedAtoms, cookies.begin(), intern, &NamedAtom::name);
    const auto compositor = intern("_NET_WM_CM_S" + std::to_string(screen));
    const auto receive = [connection](xcb_intern_atom_cookie_t cookie) {
        auto* reply = xcb_intern_atom_reply(connection, cookie, nullptr);
        const xcb_atom_t atom = reply ? reply->atom : 0;
        std::free(reply);
        return atom;
    };
    X11Atoms atoms;
    for (std::size_t index = 0; index < cookies.size(); ++index)
        atoms.*namedAtoms[index].member = receive(cookies[index]);
    atoms.compositor = receive(compositor);
    return atoms;
}

} // namespace trovell
