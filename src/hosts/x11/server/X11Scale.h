// How the pixels of the root window and the points of the program relate.
//
// X11 has no scale of its own; desktops announce theirs as a text resolution, `Xft.dpi` in the resource manager.
#pragma once

#include "drawing/PixelRect.h"
#include "foundation/Geometry.h"
#include "foundation/Publisher.h"
#include "foundation/Task.h"

#include <string_view>

namespace haloric {

// `rect`, limited to what the protocol's 16-bit fields can hold for a window; larger values would wrap.
PixelRect withinProtocol(const PixelRect& rect);

// One factor for all screens, and the place of the primary monitor, because both point spaces have their origin at one
// of its corners. Pixel rectangles: origin at the root window's top left, y downward.
//
// Global space: origin at the primary monitor's top left, y downward. Screen space: origin at its bottom left,
// y upward.
struct X11Space {
    double pixelsPerPoint = 1;
    PixelRect primary = {}; // pixels of the root window
    PixelRect desktop = {}; // holds all monitors, in the same pixels; empty: unknown

    double primaryHeight() const { return primary.height / pixelsPerPoint; } // points

    Rect toGlobal(const PixelRect& pixels) const;

    // Origin and size are rounded separately, so that a rectangle that only moves keeps its size in pixels. Halves are
    // rounded up on both sides of zero, so that one that moves by whole pixels keeps its offset, too.
    PixelRect fromGlobal(const Rect& points) const;

    Rect toScreenSpace(const PixelRect& pixels) const { return flippedVertically(toGlobal(pixels), primaryHeight()); }
    PixelRect fromScreenSpace(const Rect& points) const
    {
        return fromGlobal(flippedVertically(points, primaryHeight()));
    }

    // The exact origin minus the rounded one that `fromScreenSpace` returns, in pixels, right and down: from -1/2 to
    // 1/2, in whole steps of 1/256.
    Point offsetFromScreenSpace(const Rect& points) const;

    friend bool operator==(const X11Space&, const X11Space&) = default;

private:
    double exact(double points) const;
    int rounded(double points) const;
    double offset(double points) const;
};

// The space in force. The screens set it when monitors or the user's text resolution change; everything that converts
// between pixels and points reads it. Main thread.
class X11Scale {
public:
    explicit X11Scale(const X11Space& space = {}) : m_space(space) {}

    const X11Space& current() const { return m_space; }
    void set(const X11Space& space);

    // The space in force is another one.
    Subscription onChange(Task handler) { return m_changes.subscribe(std::move(handler)); }

    // Pixels a point at a text resolution: the resolution over 96, rounded down to a quarter, within 1 to 4. Down,
    // because 100 or 110 is set for slightly larger text, not for a larger desktop.
    static double fromDotsPerInch(double dotsPerInch);

    // As above, for the `Xft.dpi` line of a resource manager string; 1 without a valid one.
    static double fromResources(std::string_view resources);

private:
    X11Space m_space;
    Publisher<> m_changes;
};

} // namespace haloric
