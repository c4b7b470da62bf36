// The visible frame of a managed window, computed from the window that moves: its frame window, the child of the root
// that holds it.
//
// A frame may be larger than what is seen (some window managers give it an invisible margin to grab), and a client
// that draws its own decoration adds its shadow to its window. So the visible frame is the client's rectangle, plus
// the decoration that the window manager sets, minus the shadow that the client sets. Their places inside the frame
// window are measured once; afterwards the frame window's events are enough. Root pixels.
#pragma once

#include "drawing/PixelRect.h"

#include <cstdint>
#include <optional>

namespace haloric {

class X11Property;

// Widths of the four sides of a decoration or a shadow.
struct X11Extents {
    int left = 0;
    int right = 0;
    int top = 0;
    int bottom = 0;

    // Absent unless the property holds four plausible numbers.
    static std::optional<X11Extents> from(const X11Property& property);

    friend bool operator==(const X11Extents&, const X11Extents&) = default;
};

struct X11FrameGeometry {
    PixelRect frame;                      // of the frame window, borders included
    PixelRect client;                     // of the client's content; x and y relative to the frame's corner
    std::optional<X11Extents> decoration; // _NET_FRAME_EXTENTS
    std::optional<X11Extents> shadow;     // _GTK_FRAME_EXTENTS

    // A window's rectangle with its borders, from its core geometry.
    static PixelRect outerRect(int x, int y, int width, int height, int borderWidth);

    // The frame window has a new rectangle. A change of size is applied to the client as well until it is measured
    // again.
    void frameConfigured(const PixelRect& outer);

    PixelRect visibleFrame() const;

    // The visible part of a window that is rolled up: only its decoration.
    PixelRect rolledUpFrame() const;

    friend bool operator==(const X11FrameGeometry&, const X11FrameGeometry&) = default;
};

} // namespace haloric
