// The X window behind an overlay, and how the content of a view gets into it. Main thread.
#pragma once

#include "drawing/PixelRect.h"
#include "drawing/PixelRegion.h"
#include "foundation/Geometry.h"
#include "platform/ContentView.h"

#include <xcb/xcb.h>

namespace haloric {

// A view to be drawn into a window of its size. Pixels count from the window's upper left corner, y downward.
struct X11ViewContent {
    ContentView& view;
    Size size;         // points
    double scale = 1;  // pixels per point
    PixelRect pixels;  // the whole window
    Point offset = {}; // pixels, from the window's upper left corner to the view's

    Rect bounds() const { return {0, 0, size.width, size.height}; }

    // Every pixel of the window that a rectangle of the view touches.
    PixelRect toPixels(const Rect& rect) const;
};

class X11OverlaySurface {
public:
    virtual ~X11OverlaySurface() = default;

    virtual xcb_window_t window() const = 0;

    // Draws the damaged part of the view. Returns what remains to be drawn on a later turn of the loop.
    virtual PixelRegion paint(const X11ViewContent& content, const PixelRegion& damage) = 0;

    // The window was hidden, and the server has dropped its content.
    virtual void forget() = 0;
};

} // namespace haloric
