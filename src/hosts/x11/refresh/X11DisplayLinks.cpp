#include "hosts/x11/refresh/X11DisplayLinks.h"

#include <cmath>
#include <utility>

#include <xcb/present.h>

namespace haloric {

X11ScreenLink::X11ScreenLink(RunLoop& runLoop, std::unique_ptr<X11PresentClock> clock, double framesPerSecond,
                             Task tick)
    : m_runLoop(runLoop),
      m_clock(std::move(clock)),
      m_framesPerSecond(framesPerSecond),
      m_tick(std::move(tick))
{
}

void X11ScreenLink::setPreferredFrameRateRange(const FrameRateRange& range) { m_framesPerSecond = range.preferred; }

void X11ScreenLink::addToMainRunLoop()
{
    if (!m_clock) {
        runOnTimer();
        return;
    }
    m_clock->start([this] { refreshed(); });
    m_watchdog = m_runLoop.scheduleRepeating(kPatience, {}, [this] { checkClock(); });
}

void X11ScreenLink::invalidate()
{
    m_clock.reset();
    m_watchdog.reset();
    m_timer.reset();
    m_tick = nullptr;
}

void X11ScreenLink::refreshed()
{
    m_refreshedLately = true;
    const Task tick = m_tick; // it may invalidate or destroy this link
    tick();
}

void X11ScreenLink::checkClock()
{
    if (std::exchange(m_refreshedLately, false))
        return;
    m_clock.reset();
    runOnTimer();
    m_watchdog.reset(); // last: this runs inside it
}

void X11ScreenLink::runOnTimer()
{
    const bool usable = std::isfinite(m_framesPerSecond) && m_framesPerSecond >= 1;
    const Seconds interval{1 / (usable ? m_framesPerSecond : kUsualRate)};
    m_timer = m_runLoop.scheduleRepeating(interval, {}, [this] {
        const Task tick = m_tick;
        tick();
    });
}

X11DisplayLinks::X11DisplayLinks(X11Connection& connection, RunLoop& runLoop, const X11Scale& scale)
    : m_connection(connection),
      m_runLoop(runLoop),
      m_scale(scale),
      m_presentAvailable(connection.has(&xcb_present_id))
{
}

std::unique_ptr<ScreenDisplayLink> X11DisplayLinks::makeScreenLink(const Screen& screen, Task tick)
{
    std::unique_ptr<X11PresentClock> clock;
    if (m_presentAvailable)
        clock = std::make_unique<X11PresentClock>(m_connection, m_scale.current().fromScreenSpace(screen.frame));
    return std::make_unique<X11ScreenLink>(m_runLoop, std::move(clock), screen.maximumFramesPerSecond, std::move(tick));
}

} // namespace haloric
