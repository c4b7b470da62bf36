// How the pixels of the root window and the points of the program relate: one factor for all screens, and the
// place of the primary monitor, because both point spaces have their origin at one of its corners.
//
// Global space: origin at the primary monitor's top left, y downward. Screen space: origin at its bottom left,
// y upward.
#pragma once

#include "foundation/Geometry.h"
#include "hosts/x11/X11Rect.h"

#include <algorithm>
#include <cmath>

namespace haloric {

struct X11Space {
    double pixelsPerPoint = 1;
    X11Rect primary; // pixels of the root window

    double primaryHeight() const { return primary.height / pixelsPerPoint; } // points

    Rect toGlobal(const X11Rect& pixels) const
    {
        return {(pixels.x - primary.x) / pixelsPerPoint, (pixels.y - primary.y) / pixelsPerPoint,
                pixels.width / pixelsPerPoint, pixels.height / pixelsPerPoint};
    }

    // Origin and size are rounded apart, so that a rectangle that only moves keeps its size in pixels.
    X11Rect fromGlobal(const Rect& points) const
    {
        return {rounded(points.x) + primary.x, rounded(points.y) + primary.y, rounded(points.width),
                rounded(points.height)};
    }

    Rect toScreenSpace(const X11Rect& pixels) const { return flippedVertically(toGlobal(pixels), primaryHeight()); }
    X11Rect fromScreenSpace(const Rect& points) const { return fromGlobal(flippedVertically(points, primaryHeight())); }

    friend bool operator==(const X11Space&, const X11Space&) = default;

private:
    int rounded(double points) const
    {
        constexpr double kFarthest = 1e8; // far outside of any root window, and safe to add to
        return static_cast<int>(std::lround(std::clamp(points * pixelsPerPoint, -kFarthest, kFarthest)));
    }
};

} // namespace haloric
