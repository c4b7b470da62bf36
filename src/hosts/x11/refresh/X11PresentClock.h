// Tells of each refresh of one monitor, as the server counts them. It asks for one refresh at a time, and for the
// next when that has come, so that a stalled program meets no backlog. Main thread.
#pragma once

#include "drawing/PixelRect.h"
#include "foundation/Subscription.h"
#include "foundation/Task.h"
#include "hosts/x11/server/X11Connection.h"

#include <cstdint>

namespace haloric {

class X11PresentClock {
public:
    // The connection outlives it. `monitor` tells which monitor's refresh is meant: the one that holds its middle.
    X11PresentClock(X11Connection& connection, const PixelRect& monitor);
    ~X11PresentClock();
    X11PresentClock(const X11PresentClock&) = delete;
    X11PresentClock& operator=(const X11PresentClock&) = delete;

    // Calls `refreshed` at each refresh from now on, until the clock is destroyed.
    void start(Task refreshed);

private:
    void ask();
    void receive(const xcb_generic_event_t& event);

    X11Connection& m_connection;
    xcb_window_t m_window;      // never shown; its place tells the server which monitor is meant
    std::uint32_t m_eventId;    // of this clock's notices among those of others
    std::uint32_t m_serial = 0; // of the refresh that was asked for
    std::uint64_t m_lastRefresh = 0;
    Task m_refreshed;
    Subscription m_events;
};

} // namespace haloric
