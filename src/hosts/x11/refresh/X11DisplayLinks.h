// Links to a screen's refresh by the Present extension, or by a timer on servers without it. Main thread.
#pragma once

#include "foundation/Subscription.h"
#include "foundation/Task.h"
#include "hosts/x11/refresh/X11PresentClock.h"
#include "hosts/x11/server/X11Connection.h"
#include "hosts/x11/server/X11Scale.h"
#include "platform/DisplayLinks.h"
#include "platform/RunLoop.h"

#include <memory>

namespace haloric {

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
