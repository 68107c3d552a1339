// SPDX-License-Identifier: MIT
//
// The names of the X protocol that the adapter speaks, as the numbers of one server.
#pragma once

#include <xcb/xproto.h>

struct xcb_connection_t;

namespace trovell {

/// Interned once, valid for every connection to the same server. All are 0 without a server.
struct X11Atoms {
    // Root window (EWMH section 3)
    xcb_atom_t netSupported = 0;
    xcb_atom_t netSupportingWmCheck = 0;
    xcb_atom_t netClientList = 0;
    xcb_atom_t netClientListStacking = 0;
    xcb_atom_t netCurrentDesktop = 0;
    xcb_atom_t netNumberOfDesktops = 0;
    xcb_atom_t netDesktopNames = 0;
    xcb_atom_t netWorkarea = 0;
    xcb_atom_t netActiveWindow = 0;
    xcb_atom_t netMoveresizeWindow = 0;
    xcb_atom_t netRestackWindow = 0;
    /// The selection that a compositing manager of the screen owns.
    xcb_atom_t compositor = 0;

    // Application windows (EWMH section 5, ICCCM section 4)
    xcb_atom_t netWmName = 0;
    xcb_atom_t netWmPid = 0;
    xcb_atom_t netWmState = 0;
    xcb_atom_t netWmStateHidden = 0;
    xcb_atom_t netWmStateFullscreen = 0;
    xcb_atom_t netWmStateMaximizedHorz = 0;
    xcb_atom_t netWmStateMaximizedVert = 0;
    xcb_atom_t netWmStateShaded = 0;
    xcb_atom_t netWmStateAbove = 0;
    xcb_atom_t netWmStateSkipTaskbar = 0;
    xcb_atom_t netWmDesktop = 0;
    xcb_atom_t netWmStrut = 0;
    xcb_atom_t netWmStrutPartial = 0;
    xcb_atom_t netFrameExtents = 0;
    xcb_atom_t wmState = 0;

    xcb_atom_t netWmWindowType = 0;
    xcb_atom_t typeDesktop = 0;
    xcb_atom_t typeDock = 0;
    xcb_atom_t typeToolbar = 0;
    xcb_atom_t typeMenu = 0;
    xcb_atom_t typeUtility = 0;
    xcb_atom_t typeSplash = 0;
    xcb_atom_t typeDialog = 0;
    xcb_atom_t typeDropdownMenu = 0;
    xcb_atom_t typePopupMenu = 0;
    xcb_atom_t typeTooltip = 0;
    xcb_atom_t typeNotification = 0;
    xcb_atom_t typeCombo = 0;
    xcb_atom_t typeDragAndDrop = 0;
    xcb_atom_t typeNormal = 0;

    // Conventions of GTK
    xcb_atom_t gtkApplicationId = 0;
    xcb_atom_t gtkFrameExtents = 0;

    xcb_atom_t utf8String = 0;
    xcb_atom_t compoundText = 0;
    /// The RandR output property.
    xcb_atom_t edid = 0;
};

/// Asks for all of them in one round trip; some belong to a screen.
[[nodiscard]] X11Atoms internAtoms(xcb_connection_t* connection, int screen);

} // namespace trovell
