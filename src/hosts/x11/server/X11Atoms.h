// The atoms that this program uses, interned in one batch when it connects. A new atom is a member here and a line of
// the table in X11Atoms.cpp. Atoms belong to the server, so those of one connection hold for every other.
#pragma once

#include <xcb/xcb.h>

namespace haloric {

struct X11Atoms {
    // One round trip. `screenNumber`: the screen of the connection, which is part of the selections' names.
    X11Atoms(xcb_connection_t* connection, int screenNumber);

    // On the root window.
    xcb_atom_t activeWindow;
    xcb_atom_t clientList;
    xcb_atom_t clientListStacking;
    xcb_atom_t currentDesktop;
    xcb_atom_t showingDesktop;
    xcb_atom_t supported;
    xcb_atom_t supportingCheck;

    // On client windows.
    xcb_atom_t applicationId;
    xcb_atom_t bypassCompositor;
    xcb_atom_t desktop;
    xcb_atom_t frameExtents;
    xcb_atom_t gtkFrameExtents;
    xcb_atom_t icccmState;
    xcb_atom_t name;
    xcb_atom_t opacity;
    xcb_atom_t pid;
    xcb_atom_t shadow;
    xcb_atom_t state;
    xcb_atom_t windowType;

    // Values of `state`.
    xcb_atom_t stateAbove;
    xcb_atom_t stateHidden;
    xcb_atom_t stateShaded;

    // Values of `windowType`.
    xcb_atom_t typeDesktop;
    xcb_atom_t typeDialog;
    xcb_atom_t typeDock;
    xcb_atom_t typeMenu;
    xcb_atom_t typeNormal;
    xcb_atom_t typeNotification;
    xcb_atom_t typeSplash;
    xcb_atom_t typeToolbar;
    xcb_atom_t typeTooltip;
    xcb_atom_t typeUtility;

    xcb_atom_t utf8String; // the type of a text

    // Selections of the screen, and the client message that announces a new owner.
    xcb_atom_t compositor;
    xcb_atom_t tray;
    xcb_atom_t manager;

    // Of the system tray: the message to it, the properties of its window, and that of an embedded window.
    xcb_atom_t trayOpcode;
    xcb_atom_t trayVisual;
    xcb_atom_t trayColors;
    xcb_atom_t embedInfo;
};

} // namespace haloric
