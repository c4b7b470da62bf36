// A rectangle or rounded rectangle on the pixel grid of a view, in whole 1/256ths of a pixel, y downward.
//
// Everything that is drawn is converted to this form first, so that small rounding errors in coordinates do not change
// the pixels, and a part of a view has the same pixels as the whole. Cairo uses the same grid.
#pragma once

namespace haloric {

struct DeviceShape {
    static constexpr int kUnit = 256; // units a pixel

    int x0 = 0;
    int y0 = 0;
    int x1 = 0;
    int y1 = 0;
    int radius = 0; // at most half the width and half the height

    constexpr int width() const { return x1 - x0; }
    constexpr int height() const { return y1 - y0; }
    constexpr bool empty() const { return x1 <= x0 || y1 <= y0; }

    friend bool operator==(const DeviceShape&, const DeviceShape&) = default;
};

// A point of an open line, on the same grid.
struct DevicePoint {
    int x = 0;
    int y = 0;
    bool begins = false; // the first point of its line

    friend bool operator==(const DevicePoint&, const DevicePoint&) = default;
};

// The pixel that a unit lies in, and the first pixel that begins at or after it.
constexpr int pixelFloor(int units) { return units >> 8; }
constexpr int pixelCeil(int units) { return (units + DeviceShape::kUnit - 1) >> 8; }

// Whether every point of `inner` lies in `outer`. May be false for a rounded outer shape that does hold the inner one.
constexpr bool holds(const DeviceShape& outer, const DeviceShape& inner)
{
    return outer.x0 <= inner.x0 && outer.y0 <= inner.y0 && outer.x1 >= inner.x1 && outer.y1 >= inner.y1 &&
           outer.radius <= inner.radius;
}

} // namespace haloric
