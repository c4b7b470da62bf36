// The compositing manager of the screen: the owner of the selection _NET_WM_CM_Sn. Only with one are windows
// translucent. It may start and end at any time. Main thread.
#pragma once

#include "foundation/Publisher.h"
#include "foundation/Subscription.h"
#include "foundation/Task.h"
#include "hosts/x11/server/X11Connection.h"

#include <string>

namespace haloric {

class X11Compositor {
public:
    // The connection outlives it.
    explicit X11Compositor(X11Connection& connection);

    bool isRunning() const { return m_owner != XCB_WINDOW_NONE; }

    // The name on the compositor's window; may be empty. One round trip.
    std::string name() const;

    // After a compositor started or ended.
    Subscription onChange(Task handler) { return m_changed.subscribe(std::move(handler)); }

private:
    void setOwner(xcb_window_t owner);

    X11Connection& m_connection;
    xcb_atom_t m_selection;
    xcb_window_t m_owner = XCB_WINDOW_NONE;
    Publisher<> m_changed;
    Subscription m_events;
};

} // namespace haloric
