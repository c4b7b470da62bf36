// A monitor as the RandR extension tells it, in pixels of the root window.
#pragma once

#include "drawing/PixelRect.h"

#include <cstdint>
#include <vector>

#include <xcb/randr.h>
#include <xcb/xcb.h>

namespace haloric {

struct X11Monitor {
    std::uint32_t identifier = 0; // the atom of its name: the same as long as the monitor keeps its connector
    bool primary = false;
    PixelRect frame;
    double framesPerSecond = 0; // 0: not told

    friend bool operator==(const X11Monitor&, const X11Monitor&) = default;

    // The monitors in force, primary first, mirrored ones once. A server without RandR 1.5 has one, as large as its
    // root window. Three round trips.
    static std::vector<X11Monitor> readAll(xcb_connection_t* connection, const xcb_screen_t& screen);

    // The order in which screens are told: primary first, no empty ones, none that covers the same as an earlier one.
    static std::vector<X11Monitor> inOrder(std::vector<X11Monitor> monitors);

    // Of a video mode; 0 when it does not tell.
    static double framesPerSecondOf(const xcb_randr_mode_info_t& mode);
};

} // namespace haloric
