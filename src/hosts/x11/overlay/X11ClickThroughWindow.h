// A bare X window for an overlay: window managers pass it by, it is in no list and never focused, clicks go through it
// to what lies below, and compositors are asked to draw no shadow for it. Made unmapped, destroyed with this object.
// Main thread.
#pragma once

#include "hosts/x11/server/X11Connection.h"

#include <cstdint>
#include <optional>

namespace haloric {

class X11ClickThroughWindow {
public:
    // With a visual the window is translucent (see X11TranslucentVisual); without, it is like the root window. Its
    // background is transparent or black. The connection outlives it.
    X11ClickThroughWindow(X11Connection& connection, std::optional<xcb_visualid_t> translucentVisual);
    ~X11ClickThroughWindow();
    X11ClickThroughWindow(const X11ClickThroughWindow&) = delete;
    X11ClickThroughWindow& operator=(const X11ClickThroughWindow&) = delete;

    xcb_window_t id() const { return m_id; }

private:
    void create(std::optional<xcb_visualid_t> translucentVisual);
    void letInputThrough() const;
    void setHints() const;

    X11Connection& m_connection;
    xcb_window_t m_id;
    xcb_colormap_t m_colormap = XCB_NONE;
};

} // namespace haloric
