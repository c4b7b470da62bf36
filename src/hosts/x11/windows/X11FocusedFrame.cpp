#include "hosts/x11/windows/X11FocusedFrame.h"

#include <utility>

namespace haloric {

namespace {

std::optional<PixelRect> frameSeenOf(const X11Client& client)
{
    return client.isShown() ? std::optional(client.visibleFrame()) : std::nullopt;
}

} // namespace

X11FocusedFrame::X11FocusedFrame(X11Connection& connection, X11Clients& clients, Handler handler)
    : m_clients(clients),
      m_handler(std::move(handler))
{
    // At once for moves, so that the overlay follows in the same turn of the loop, before anything is read.
    m_subscriptions.push_back(connection.onEvent(XCB_CONFIGURE_NOTIFY, [this](const auto&) { look(); }));
    m_subscriptions.push_back(connection.onEvent<xcb_destroy_notify_event_t>(
        XCB_DESTROY_NOTIFY, [this](const auto& event) { destroyed(event.window); }));
    m_subscriptions.push_back(clients.onPass([this] { look(); }));
}

void X11FocusedFrame::follow(xcb_window_t window)
{
    m_window = window;
    const X11Client* client = m_clients.table().find(window);
    m_isKnown = client != nullptr;
    m_isDestroyed = false;
    m_visibleFrame = client ? frameSeenOf(*client) : std::nullopt;
}

void X11FocusedFrame::look()
{
    if (m_window == XCB_WINDOW_NONE)
        return;
    const X11Client* client = m_clients.table().find(m_window);
    if (!client && !m_isKnown)
        return;
    if (client)
        m_isDestroyed = false; // a new window may have the number of an old one
    const auto now = client ? frameSeenOf(*client) : std::nullopt;
    const auto before = std::exchange(m_visibleFrame, now);
    if (std::exchange(m_isKnown, true) && before == now)
        return;
    if (!now) {
        m_handler(WindowServerEvent::orderedOut, m_window);
        return;
    }
    if (!before || before->x != now->x || before->y != now->y)
        m_handler(WindowServerEvent::moved, m_window);
    if (!before || before->width != now->width || before->height != now->height)
        m_handler(WindowServerEvent::resized, m_window);
}

// The event may come twice, to the window itself and to its parent.
void X11FocusedFrame::destroyed(xcb_window_t window)
{
    if (window != m_window || window == XCB_WINDOW_NONE || std::exchange(m_isDestroyed, true))
        return;
    m_isKnown = true;
    m_visibleFrame.reset();
    m_handler(WindowServerEvent::destroyed, m_window);
}

} // namespace haloric
