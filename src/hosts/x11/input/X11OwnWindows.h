// The windows of this program that receive input. Overlays are not among them: input passes through. Main thread.
#pragma once

#include "hosts/x11/server/X11Connection.h"

#include <set>

namespace haloric {

class X11OwnWindows {
public:
    // The connection outlives it.
    explicit X11OwnWindows(X11Connection& connection) : m_connection(connection) {}

    void add(xcb_window_t window) { m_windows.insert(window); }
    void remove(xcb_window_t window) { m_windows.erase(window); }

    // Whether the pointer is over one of them. A few round trips, none if there are no windows.
    bool areUnderPointer() const;

private:
    X11Connection& m_connection;
    std::set<xcb_window_t> m_windows;
};

} // namespace haloric
