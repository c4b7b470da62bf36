#include "hosts/x11/refresh/X11DisplayLinks.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include <xcb/present.h>

namespace haloric {

namespace {

std::int16_t middle(int start, int length)
{
    using Limits = std::numeric_limits<std::int16_t>;
    return static_cast<std::int16_t>(std::clamp<int>(start + length / 2, Limits::min(), Limits::max()));
}

} // namespace

X11PresentClock::X11PresentClock(X11Connection& connection, const PixelRect& monitor)
    : m_connection(connection),
      m_window(xcb_generate_id(connection.raw())),
      m_eventId(xcb_generate_id(connection.raw()))
{
    xcb_connection_t* raw = connection.raw();
    const std::uint32_t overrideRedirect = 1;
    xcb_create_window(raw, XCB_COPY_FROM_PARENT, m_window, connection.root(), middle(monitor.x, monitor.width),
                      middle(monitor.y, monitor.height), 1, 1, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_OVERRIDE_REDIRECT, &overrideRedirect);
    xcb_present_select_input(raw, m_eventId, m_window, XCB_PRESENT_EVENT_MASK_COMPLETE_NOTIFY);
}

X11PresentClock::~X11PresentClock()
{
    xcb_destroy_window(m_connection.raw(), m_window); // also ends the selection of events
}

void X11PresentClock::start(Task refreshed)
{
    m_refreshed = std::move(refreshed);
    m_events =
        m_connection.onGenericEvent(&xcb_present_id, [this](const xcb_generic_event_t& event) { receive(event); });
    ask();
}

void X11PresentClock::ask()
{
    // The refresh after the last one received, or the next to come if that one has passed.
    xcb_present_notify_msc(m_connection.raw(), m_window, ++m_serial, m_lastRefresh + 1, 1, 0);
}

void X11PresentClock::receive(const xcb_generic_event_t& event)
{
    const auto& complete = eventAs<xcb_present_complete_notify_event_t>(event);
    if (complete.event_type != XCB_PRESENT_COMPLETE_NOTIFY || complete.event != m_eventId ||
        complete.serial != m_serial)
        return; // another clock's, or an earlier request's
    m_lastRefresh = complete.msc;
    ask();
    const Task refreshed = m_refreshed; // it may destroy this clock
    refreshed();
}

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
