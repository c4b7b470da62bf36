// The X window behind an overlay, and how the content of a view gets into it. Main thread.
#pragma once

#include "hosts/x11/overlay/X11PixelRegion.h"
#include "hosts/x11/overlay/X11ViewContent.h"

#include <xcb/xcb.h>

namespace haloric {

class X11OverlaySurface {
public:
    virtual ~X11OverlaySurface() = default;

    virtual xcb_window_t window() const = 0;

    // Draws the view where it is damaged. Returns what is still to be drawn, on a later turn of the loop.
    virtual X11PixelRegion paint(const X11ViewContent& content, const X11PixelRegion& damage) = 0;

    // The server has lost what was drawn, as the window was hidden.
    virtual void forget() = 0;
};

} // namespace haloric
