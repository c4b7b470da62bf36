// A view as it is to be drawn into a window of its size. Pixels count from the window's upper left corner, y downward.
#pragma once

#include "drawing/PixelRect.h"
#include "foundation/Geometry.h"
#include "platform/ContentView.h"

namespace haloric {

struct X11ViewContent {
    ContentView& view;
    Size size;         // points
    double scale = 1;  // pixels a point
    PixelRect pixels;  // of the window: all there are
    Point offset = {}; // of the view's upper left corner from the window's, which is a whole pixel; in pixels

    Rect bounds() const { return {0, 0, size.width, size.height}; }

    // Every pixel of the window that a rectangle of the view touches.
    PixelRect toPixels(const Rect& rect) const;
};

} // namespace haloric
