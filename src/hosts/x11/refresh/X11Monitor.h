// A RandR monitor, in pixels of the root window.
#pragma once

#include "drawing/PixelRect.h"

#include <cstdint>
#include <vector>

#include <xcb/randr.h>
#include <xcb/xcb.h>

namespace haloric {

struct X11Monitor {
    std::uint32_t identifier = 0; // the atom of its name, which stays while the monitor keeps its connector
    bool primary = false;
    PixelRect frame;
    double framesPerSecond = 0; // 0: unknown

    friend bool operator==(const X11Monitor&, const X11Monitor&) = default;

    // Active monitors in the order of `inOrder`. For a server without RandR 1.5 one monitor, as large as the root
    // window. Three round trips.
    static std::vector<X11Monitor> readAll(xcb_connection_t* connection, const xcb_screen_t& screen);

    // Primary first, without empty ones, and without mirrored duplicates: those that cover the same as an earlier one.
    static std::vector<X11Monitor> inOrder(std::vector<X11Monitor> monitors);

    // The refresh rate of a video mode; 0 if unknown.
    static double framesPerSecondOf(const xcb_randr_mode_info_t& mode);
};

} // namespace haloric
