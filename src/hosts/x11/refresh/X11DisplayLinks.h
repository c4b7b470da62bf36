// Links to a screen's refresh by the Present extension, or by a timer on servers without it. Main thread.
#pragma once

#include "drawing/PixelRect.h"
#include "foundation/Subscription.h"
#include "foundation/Task.h"
#include "hosts/x11/server/X11Connection.h"
#include "hosts/x11/server/X11Scale.h"
#include "platform/DisplayLinks.h"
#include "platform/RunLoop.h"

#include <cstdint>
#include <memory>

namespace haloric {

// The refreshes of one monitor, as the Present extension counts them. It requests one notification at a time, and the
// next after that one has arrived, so that no backlog builds up while the program is busy.
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

// Follows the server's count of refreshes. Without one, or when the count stops (some drivers do that), a timer at the
// screen's rate takes over for the rest of the link's life.
class X11ScreenLink final : public ScreenDisplayLink {
public:
    static constexpr Seconds kPatience{0.1}; // without a refresh, before the timer takes over
    static constexpr double kUsualRate = 60; // frames per second, if the screen reports none

    // The loop outlives it. `clock` is null if the server counts no refreshes.
    X11ScreenLink(RunLoop& runLoop, std::unique_ptr<X11PresentClock> clock, double framesPerSecond, Task tick);

    void setPreferredFrameRateRange(const FrameRateRange& range) override;
    void addToMainRunLoop() override;
    void invalidate() override;

private:
    void refreshed();
    void checkClock();
    void runOnTimer();

    RunLoop& m_runLoop;
    std::unique_ptr<X11PresentClock> m_clock;
    double m_framesPerSecond;
    Task m_tick;
    bool m_refreshedLately = false;
    Subscription m_watchdog;
    Subscription m_timer;
};

class X11DisplayLinks final : public DisplayLinks {
public:
    // All outlive it.
    X11DisplayLinks(X11Connection& connection, RunLoop& runLoop, const X11Scale& scale);

    // Whether links follow the refresh; otherwise they are timers at the screen's rate.
    bool followRefresh() const { return m_presentAvailable; }

    std::unique_ptr<ScreenDisplayLink> makeScreenLink(const Screen& screen, Task tick) override;

private:
    X11Connection& m_connection;
    RunLoop& m_runLoop;
    const X11Scale& m_scale;
    bool m_presentAvailable;
};

} // namespace haloric
