// Follows the visible frame of one window, from the events of the main connection that keep X11Clients' table fresh:
// a move is known when its event is dispatched, everything else after the pass that reads it. Windows are named by
// their client's X id. Main thread; makes no requests.
#pragma once

#include "foundation/Subscription.h"
#include "hosts/x11/server/X11Connection.h"
#include "hosts/x11/windows/X11Clients.h"
#include "platform/WindowServerEvents.h"

#include <functional>
#include <optional>
#include <vector>

#include <xcb/xcb.h>

namespace haloric {

class X11FocusedFrame {
public:
    using Handler = std::function<void(WindowServerEvent, xcb_window_t)>;

    // Both outlive it. `clients` must have been created before, so that the table takes each event in first.
    X11FocusedFrame(X11Connection& connection, X11Clients& clients, Handler handler);
    X11FocusedFrame(const X11FocusedFrame&) = delete;
    X11FocusedFrame& operator=(const X11FocusedFrame&) = delete;

    // Follows a window in place of the previous one; XCB_WINDOW_NONE: no window. The handler reports what changes from
    // now on; a window that is not in the table yet is reported once it is.
    void follow(xcb_window_t window);

    // True once the followed window has been in the table.
    bool isKnown(xcb_window_t window) const { return window == m_window && m_isKnown; }

    // In root pixels; no value while the window is minimised, unmapped or gone.
    const std::optional<PixelRect>& visibleFrame() const { return m_visibleFrame; }

private:
    void look();
    void destroyed(xcb_window_t window);

    X11Clients& m_clients;
    Handler m_handler;
    xcb_window_t m_window = XCB_WINDOW_NONE;
    bool m_isKnown = false;
    bool m_isDestroyed = false;
    std::optional<PixelRect> m_visibleFrame;
    std::vector<Subscription> m_subscriptions;
};

} // namespace haloric
