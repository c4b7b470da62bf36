// Keeps the shown overlays in the root window's stacking order, directly above the topmost ordinary window and above
// the focused one, in the order in which they were ordered front; so panels, menus and popups stay above them.
// Restacking of other windows is followed at most once a turn of the loop; its own restacking is ignored. Main thread.
#pragma once

#include "foundation/Subscription.h"
#include "hosts/x11/server/X11Connection.h"
#include "hosts/x11/windows/X11ClientTable.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <unordered_map>
#include <utility>
#include <vector>

namespace haloric {

// The place of the overlays among the children of the root window. Pure.
//
// What a child of the root means to the overlays.
enum class X11StackRole {
    ordinary, // an application's window that takes part in the highlighting and dimming
    focused,  // the window with the focus, of any kind
    other,    // panels, menus, popups, the desktop, unmapped windows
    overlay,
};

struct X11StackEntry {
    std::uint32_t window = 0;
    X11StackRole role = X11StackRole::other;
};

struct X11StackPlan {
    // The window directly below the lowest overlay; no value if there is neither an ordinary nor a focused window.
    std::optional<std::uint32_t> anchor;

    // Whether all overlays are in place already: in their order, with no other window in between.
    bool isInPlace = false;

    // `children` from bottom to top; `overlays` are the shown ones, from bottom to top.
    static X11StackPlan make(std::span<const X11StackEntry> children, std::span<const std::uint32_t> overlays);
};

class X11OverlayStack {
public:
    // Both outlive it.
    X11OverlayStack(X11Connection& connection, const X11ClientTable& clients);

    // `handler` is called with each window after the request that maps it.
    void onMapped(std::function<void(xcb_window_t)> handler) { m_mapped = std::move(handler); }

    // Shows a window in front of the other overlays. The next `update` maps it after it is in its place: mapped before,
    // it would cover open menus for a moment.
    void orderFront(xcb_window_t window);

    // Hides a window if it is shown.
    void orderOut(xcb_window_t window);

    // Shows `replacement` in the place of `shown`, which is hidden. No effect if `shown` is not shown.
    void replace(xcb_window_t shown, xcb_window_t replacement);

    // Makes the pending pass, if any. True if it sent requests to the server.
    bool update();

    // Windows of which the place is remembered: at most the children of the root.
    std::size_t rememberedWindows() const { return m_siblingsBelow.size(); }

private:
    void listen();
    void noticeConfigure(const xcb_configure_notify_event_t& event);
    void noticeOthers(xcb_window_t window);
    bool isOverlay(xcb_window_t window) const;
    void place();
    std::vector<X11StackEntry> readChildren() const;

    X11Connection& m_connection;
    const X11ClientTable& m_clients;
    std::vector<xcb_window_t> m_shown;    // bottom to top
    std::vector<xcb_window_t> m_unmapped; // of those, the ones that `update` has yet to map
    // The sibling below each other child of the root, by its last event, unless an overlay went between them since.
    std::unordered_map<xcb_window_t, xcb_window_t> m_siblingsBelow;
    bool m_isDue = false;
    std::function<void(xcb_window_t)> m_mapped = [](xcb_window_t) {};
    std::vector<Subscription> m_subscriptions;
};

} // namespace haloric
