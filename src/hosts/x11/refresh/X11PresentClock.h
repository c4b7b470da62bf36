// The refreshes of one monitor, as the Present extension counts them. It requests one notification at a time, and the
// next after that one has arrived, so that no backlog builds up while the program is busy. Main thread.
#pragma once

#include "drawing/PixelRect.h"
#include "foundation/Subscription.h"
#include "foundation/Task.h"
#include "hosts/x11/server/X11Connection.h"

#include <cstdint>

namespace haloric {

class X11PresentClock {
public:
    // The connection outlives it. Uses the refresh of the monitor that contains the centre of `monitor`.
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
    xcb_window_t m_window;      // never mapped; its position selects the monitor
    std::uint32_t m_eventId;    // of this clock's events
    std::uint32_t m_serial = 0; // of the requested refresh
    std::uint64_t m_lastRefresh = 0;
    Task m_refreshed;
    Subscription m_events;
};

} // namespace haloric
