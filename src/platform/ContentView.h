// The content of a toolkit window. The window's owner implements it; the host calls it to draw. Main thread.
#pragma once

#include "foundation/Geometry.h"

#include <vector>

namespace haloric {

class Canvas;

// View space: origin at the bottom left of the view (no view is flipped), y upward, points.
class ContentView {
public:
    virtual ~ContentView() = default;

    virtual bool isOpaque() const = 0;
    virtual bool isFlipped() const = 0;

    // Draws the whole view. `bounds` is the view's rectangle, with its origin at zero. The canvas may be clipped to
    // the part that needs display.
    virtual void draw(Canvas& canvas, const Rect& bounds) = 0;

    // Rectangles outside which `draw` leaves every pixel transparent, so that a host need neither store nor send the
    // rest. They may overlap each other and exceed the bounds.
    virtual std::vector<Rect> paintedArea(const Rect& bounds) const = 0;
};

} // namespace haloric
