// An override-redirect window with an empty input shape, for an overlay: window managers ignore it, it is never
// focused, clicks reach the window below, and its hints ask compositors for no shadow. Made unmapped, destroyed with
// this object. Main thread.
#pragma once

#include "hosts/x11/server/X11Connection.h"

#include <cstdint>
#include <optional>

namespace haloric {

class X11ClickThroughWindow {
public:
    static constexpr std::uint8_t kTranslucentDepth = 32;

    // The visual with 32 bits per pixel and alpha in the highest byte, in this machine's byte order; no value if the
    // server has none.
    static std::optional<xcb_visualid_t> findTranslucentVisual(const X11Connection& connection);

    // With a translucent visual the background is transparent; without, the window has the root window's visual and a
    // black background. The connection outlives it.
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
