// The stacking order of the screen as it is now: the children of the root from bottom to top, and what each means to
// the overlays. The order is read afresh each time, what the windows are comes from the table of clients. Main thread.
#pragma once

#include "hosts/x11/overlay/X11StackPlan.h"
#include "hosts/x11/server/X11Connection.h"
#include "hosts/x11/windows/X11ClientTable.h"

#include <span>
#include <vector>

namespace haloric {

class X11RootChildren {
public:
    // Both outlive it.
    X11RootChildren(X11Connection& connection, const X11ClientTable& clients)
        : m_connection(connection),
          m_clients(clients)
    {
    }

    // One round trip. Empty when the server has gone.
    std::vector<X11StackEntry> read(std::span<const xcb_window_t> overlays) const;

private:
    X11Connection& m_connection;
    const X11ClientTable& m_clients;
};

} // namespace haloric
