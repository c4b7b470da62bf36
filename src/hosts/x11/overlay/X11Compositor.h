// Whether a compositing manager runs on the screen, which is what makes translucent windows possible. It comes and
// goes. Main thread.
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

    // The name that the compositor gives itself; empty when it has none. One round trip.
    std::string name() const;

    // After it came or went.
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
