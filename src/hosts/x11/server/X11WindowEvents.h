// Listening to the windows of other programs over the main connection. Main thread.
#pragma once

#include "hosts/x11/server/X11Connection.h"

#include <cstdint>

#include <xcb/xcb.h>

namespace haloric {

class X11WindowEvents {
public:
    // Changes of properties; and the window's own configuring, mapping, reparenting and end.
    static constexpr std::uint32_t kEvents = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;

    // Properties name windows, and anything may stand in a property. The root and the windows of this connection
    // have their events selected elsewhere, which listening here would undo.
    static bool mayListen(const X11Connection& connection, xcb_window_t window)
    {
        const auto* setup = xcb_get_setup(connection.raw());
        return window != XCB_WINDOW_NONE && window != connection.root() &&
               (window & ~setup->resource_id_mask) != setup->resource_id_base;
    }

    static void listen(const X11Connection& connection, xcb_window_t window) { select(connection, window, kEvents); }

    static void ignore(const X11Connection& connection, xcb_window_t window)
    {
        select(connection, window, XCB_EVENT_MASK_NO_EVENT);
    }

private:
    static void select(const X11Connection& connection, xcb_window_t window, std::uint32_t events)
    {
        xcb_change_window_attributes(connection.raw(), window, XCB_CW_EVENT_MASK, &events);
    }
};

} // namespace haloric
