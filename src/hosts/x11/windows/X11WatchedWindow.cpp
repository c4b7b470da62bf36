#include "hosts/x11/windows/X11WatchedWindow.h"

#include "hosts/x11/server/XcbReply.h"

#include <array>
#include <utility>

namespace haloric {

namespace {

constexpr std::uint32_t kClientEvents = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;

} // namespace

X11WatchedWindow::X11WatchedWindow(xcb_connection_t* connection, xcb_window_t root, const X11Atoms& atoms)
    : m_connection(connection),
      m_root(root),
      m_atoms(atoms),
      m_reader(connection, root, atoms)
{
    const std::uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(m_connection, m_root, XCB_CW_EVENT_MASK, &events);
}

void X11WatchedWindow::become(xcb_window_t window)
{
    if (window == m_root)
        window = XCB_WINDOW_NONE; // its events are selected for the frames
    if (m_client.window != window)
        select(m_client.window, XCB_EVENT_MASK_NO_EVENT);
    // Before reading, so that nothing is missed; and even for the same number, which may be another window by now.
    select(window, kClientEvents);
    m_client = {};
    m_client.window = window;
    m_exists = false;
    m_mustMeasure = false;
    m_mustRead = window != XCB_WINDOW_NONE;
    readAgain();
}

std::optional<PixelRect> X11WatchedWindow::visibleFrame() const
{
    const bool isSeen = m_exists && !m_client.isMinimised() && (m_client.mapped || m_client.shaded);
    return isSeen ? std::optional(m_client.visibleFrame()) : std::nullopt;
}

bool X11WatchedWindow::readAgain()
{
    if (std::exchange(m_mustRead, false)) {
        m_mustMeasure = false;
        const std::array windows{m_client.window};
        const auto record = m_reader.read(windows).front();
        m_exists = record.has_value();
        if (record)
            m_client = record->client;
        return true;
    }
    if (std::exchange(m_mustMeasure, false) && m_exists) {
        const std::array<X11Client*, 1> clients{&m_client};
        m_reader.measure(clients);
        return true;
    }
    return false;
}

void X11WatchedWindow::handle(const xcb_generic_event_t& event)
{
    if (m_client.window == XCB_WINDOW_NONE)
        return;
    switch (event.response_type) { // an event that some client sent has a bit more and is none of these
    case XCB_CONFIGURE_NOTIFY:
        configured(event);
        break;
    case XCB_PROPERTY_NOTIFY:
        propertyChanged(eventAs<xcb_property_notify_event_t>(event).atom);
        break;
    case XCB_REPARENT_NOTIFY:
        m_mustRead = m_mustRead || eventAs<xcb_reparent_notify_event_t>(event).window == m_client.window;
        break;
    case XCB_MAP_NOTIFY:
        mapped(eventAs<xcb_map_notify_event_t>(event).window, true);
        break;
    case XCB_UNMAP_NOTIFY:
        mapped(eventAs<xcb_unmap_notify_event_t>(event).window, false);
        break;
    case XCB_DESTROY_NOTIFY:
        destroyed(eventAs<xcb_destroy_notify_event_t>(event).window);
        break;
    default:
        break;
    }
}

void X11WatchedWindow::propertyChanged(xcb_atom_t property)
{
    m_mustRead = m_mustRead || property == m_atoms.state || property == m_atoms.icccmState;
    m_mustMeasure = m_mustMeasure || property == m_atoms.frameExtents || property == m_atoms.gtkFrameExtents;
}

void X11WatchedWindow::configured(const xcb_generic_event_t& event)
{
    const auto& configure = eventAs<xcb_configure_notify_event_t>(event);
    if (configure.event != m_root) {
        m_mustMeasure = true; // the client inside its frame
        return;
    }
    const bool isStale = static_cast<std::int32_t>(event.full_sequence - m_client.measuredAt) < 0;
    if (configure.window != m_client.frame || isStale)
        return;
    const PixelRect outer = X11FrameGeometry::outerRect(configure.x, configure.y, configure.width, configure.height,
                                                        configure.border_width);
    const PixelRect& before = m_client.geometry.frame;
    m_mustMeasure = m_mustMeasure || before.width != outer.width || before.height != outer.height;
    m_client.geometry.frameConfigured(outer);
}

// The events that are under way are taken as one change: a window that is unmapped and mapped again, as when it gets
// another frame, was never away.
void X11WatchedWindow::mapped(xcb_window_t window, bool isMapped)
{
    if (window != m_client.window && window != m_client.frame)
        return;
    m_client.mapped = isMapped;
    m_mustRead = true;
}

void X11WatchedWindow::destroyed(xcb_window_t window)
{
    m_exists = m_exists && window != m_client.window;
    m_mustRead = m_mustRead || window == m_client.frame; // the client may live on without it
}

void X11WatchedWindow::select(xcb_window_t window, std::uint32_t events) const
{
    if (window != XCB_WINDOW_NONE)
        xcb_change_window_attributes(m_connection, window, XCB_CW_EVENT_MASK, &events);
}

} // namespace haloric
