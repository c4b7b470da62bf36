// Keeps the overlays that are shown directly above the topmost ordinary window and above the focused one, in the order
// in which they were ordered front; so panels, menus and popups stay above them. It follows the restacking of others,
// at most once a turn of the loop, and takes no notice of its own. Main thread.
#pragma once

#include "foundation/Subscription.h"
#include "hosts/x11/overlay/X11RootChildren.h"
#include "hosts/x11/server/X11Connection.h"

#include <functional>
#include <unordered_map>
#include <utility>
#include <vector>

namespace haloric {

class X11OverlayStack {
public:
    // Both outlive it.
    X11OverlayStack(X11Connection& connection, const X11ClientTable& clients);

    // Told of each window when it is mapped.
    void onMapped(std::function<void(xcb_window_t)> handler) { m_mapped = std::move(handler); }

    // Shows a window in front of the other overlays. It is mapped at the next `update`, once it is in its place: mapped
    // before, it would cover open menus for a moment.
    void orderFront(xcb_window_t window);

    // Hides a window; nothing when it is not shown.
    void orderOut(xcb_window_t window);

    // Puts a window that is not shown into the place of one that is, which is hidden.
    void replace(xcb_window_t shown, xcb_window_t replacement);

    // Makes the one pass that is due, if any. True when something was asked of the server.
    bool update();

private:
    void listen();
    void noticeConfigure(const xcb_configure_notify_event_t& event);
    void noticeOthers(xcb_window_t window);
    bool isOverlay(xcb_window_t window) const;
    void place();

    X11Connection& m_connection;
    X11RootChildren m_children;
    std::vector<xcb_window_t> m_shown;    // bottom to top
    std::vector<xcb_window_t> m_unmapped; // of those, the ones that `update` has yet to map
    std::unordered_map<xcb_window_t, xcb_window_t>
        m_siblingsBelow; // what each other child of the root was last said to be above, unless an overlay came between
    bool m_isDue = false;
    std::function<void(xcb_window_t)> m_mapped = [](xcb_window_t) {};
    std::vector<Subscription> m_subscriptions;
};

} // namespace haloric
