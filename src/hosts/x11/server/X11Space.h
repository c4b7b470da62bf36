// How the pixels of the root window and the points of the program relate: one factor for all screens, and the
// place of the primary monitor, because both point spaces have their origin at one of its corners.
//
// Global space: origin at the primary monitor's top left, y downward. Screen space: origin at its bottom left,
// y upward.
#pragma once

#include "foundation/Geometry.h"
#include "hosts/x11/server/X11Rect.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace haloric {

// The nearest rectangle that the protocol's 16-bit numbers can express for a window; others would wrap around.
inline PixelRect withinProtocol(const PixelRect& rect)
{
    using Limits = std::numeric_limits<std::int16_t>;
    return {std::clamp<int>(rect.x, Limits::min(), Limits::max()),
            std::clamp<int>(rect.y, Limits::min(), Limits::max()), std::clamp<int>(rect.width, 1, Limits::max()),
            std::clamp<int>(rect.height, 1, Limits::max())};
}

struct X11Space {
    double pixelsPerPoint = 1;
    X11Rect primary; // pixels of the root window

    double primaryHeight() const { return primary.height / pixelsPerPoint; } // points

    Rect toGlobal(const X11Rect& pixels) const
    {
        return {(pixels.x - primary.x) / pixelsPerPoint, (pixels.y - primary.y) / pixelsPerPoint,
                pixels.width / pixelsPerPoint, pixels.height / pixelsPerPoint};
    }

    // Origin and size are rounded apart, so that a rectangle that only moves keeps its size in pixels. Halves are
    // rounded up on both sides of zero, so that one that moves by whole pixels keeps its offset, too.
    X11Rect fromGlobal(const Rect& points) const
    {
        return {rounded(points.x) + primary.x, rounded(points.y) + primary.y, rounded(points.width),
                rounded(points.height)};
    }

    Rect toScreenSpace(const X11Rect& pixels) const { return flippedVertically(toGlobal(pixels), primaryHeight()); }
    X11Rect fromScreenSpace(const Rect& points) const { return fromGlobal(flippedVertically(points, primaryHeight())); }

    // How far right of and below the origin that `fromScreenSpace` gives the exact one lies, in pixels: from -1/2 to
    // 1/2, in whole steps of 1/256.
    Point offsetFromScreenSpace(const Rect& points) const
    {
        const Rect global = flippedVertically(points, primaryHeight());
        return {offset(global.x), offset(global.y)};
    }

    friend bool operator==(const X11Space&, const X11Space&) = default;

private:
    double exact(double points) const
    {
        constexpr double kFarthest = 1e8; // far outside of any root window, and safe to add to
        return std::clamp(points * pixelsPerPoint, -kFarthest, kFarthest);
    }

    int rounded(double points) const
    {
        constexpr double kNoise = 1e-6; // a half stays one through the noise of earlier sums
        return static_cast<int>(std::floor(exact(points) + 0.5 + kNoise));
    }

    double offset(double points) const
    {
        constexpr double kSteps = 256; // finer ones would be noise to the eye, and in the sums
        return std::round((exact(points) - rounded(points)) * kSteps) / kSteps;
    }
};

} // namespace haloric
