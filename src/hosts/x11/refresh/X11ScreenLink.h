// A link to a screen's refresh. It follows the server's count of refreshes; where there is none, or it falls silent
// (some drivers stop counting), a timer at the screen's rate takes over until the link ends. Main thread.
#pragma once

#include "foundation/Subscription.h"
#include "foundation/Task.h"
#include "hosts/x11/refresh/X11PresentClock.h"
#include "platform/DisplayLinks.h"
#include "platform/RunLoop.h"

namespace haloric {

class X11ScreenLink final : public ScreenDisplayLink {
public:
    static constexpr Seconds kPatience{0.1}; // without a refresh, before the timer takes over
    static constexpr double kUsualRate = 60; // where the screen does not tell its own

    // The loop outlives it. `clock` is null where the server counts no refreshes.
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

} // namespace haloric
