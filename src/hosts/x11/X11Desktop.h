// The adapters of one X display: what is read from the desktop, and the windows that are drawn over it. The program,
// the diagnostics, the contract host and the tests use this one wiring. Main thread.
//
// What happens on an X event. The run loop wakes because the connection's descriptor is readable; X11Connection takes
// each event that has arrived and calls its subscribers. A subscriber asks the server nothing and notifies no other
// part of the program, with one exception: X11FocusedFrame reports moves of the followed window at once, so that the
// overlay moves with it in the same turn. The others only note what may have changed:
//   X11Screens          the monitors, or the text resolution
//   X11WindowManager    its check window, its name, its list of hints
//   X11Clients          the root's properties; windows to read again; frames to measure again. A frame that has only
//                       moved is updated from the event itself
//   X11OverlayStack     the stacking order around the overlays
//   X11ToolkitWindows   areas to paint again
// Before the loop waits, it calls `pass` until a pass finds nothing to do. A pass reads what was noted in a few
// batches, brings the adapters up to date in a fixed order, and notifies their observers: screens first, because the
// scale converts everything else; then the window manager, because it decides how the clients' properties are read;
// then the clients, whose notices and passes feed the workspace and the Accessibility observers, and through them the
// tracker and the overlay controller; then the stack, which looks for the clients' frames; last the paint, which draws
// what the observers have changed. So any number of events costs one pass, an event that changes nothing costs no
// notification, and each step finds the ones before it up to date. Replies may bring further events along; the
// connection dispatches those before the next pass, and flushes what the pass has requested.
//
// Input, hotkeys, the compositor's selection and the refresh do not take part: their events are complete in themselves
// and are handled when they arrive.
#pragma once

#include "hosts/x11/input/X11InputMonitors.h"
#include "hosts/x11/input/X11Keyboard.h"
#include "hosts/x11/input/X11OwnWindows.h"
#include "hosts/x11/input/X11RawInput.h"
#include "hosts/x11/overlay/X11Compositor.h"
#include "hosts/x11/overlay/X11ToolkitWindows.h"
#include "hosts/x11/refresh/X11DisplayLinks.h"
#include "hosts/x11/refresh/X11Screens.h"
#include "hosts/x11/server/X11Connection.h"
#include "hosts/x11/server/X11Scale.h"
#include "hosts/x11/windows/X11Accessibility.h"
#include "hosts/x11/windows/X11ApplicationCatalog.h"
#include "hosts/x11/windows/X11Clients.h"
#include "hosts/x11/windows/X11WindowInfoSource.h"
#include "hosts/x11/windows/X11WindowManager.h"
#include "hosts/x11/windows/X11WindowServerCalls.h"
#include "hosts/x11/windows/X11Workspace.h"

namespace haloric {

struct X11Desktop {
    // Reads the desktop as it is. All three outlive it.
    X11Desktop(X11Connection& connection, LinuxRunLoop& runLoop, Log& log);
    X11Desktop(const X11Desktop&) = delete;
    X11Desktop& operator=(const X11Desktop&) = delete;

    // What is read.
    X11Scale scale;
    X11Screens screens;
    X11WindowManager windowManager;
    X11Clients clients;
    X11Workspace workspace;
    X11Accessibility accessibility;
    X11WindowInfoSource windowInfoSource;
    X11WindowServerCalls windowServerCalls;
    X11ApplicationCatalog catalog;

    // What is drawn, and when.
    X11Compositor compositor;
    X11ToolkitWindows toolkitWindows;
    X11DisplayLinks displayLinks;

    // What the user does.
    X11Keyboard keyboard;
    X11RawInput rawInput;
    X11OwnWindows ownWindows;
    X11InputMonitors input;

private:
    // Brings everything up to date with the events that were dispatched. True when there was something to do.
    bool pass();

    X11Connection& m_connection;
    Subscription m_beforeWait;
};

} // namespace haloric
