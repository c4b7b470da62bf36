#include "hosts/x11/refresh/X11PresentClock.h"

#include <algorithm>
#include <limits>

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

} // namespace haloric
