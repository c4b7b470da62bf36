// A rectangle without its middle, as rectangles.
#pragma once

#include "foundation/Geometry.h"

#include <algorithm>
#include <vector>

namespace haloric {

// Points by which an edge between two pixels can spill over.
inline constexpr double kAntialiasing = 1;

// Up to four rectangles that cover `outer` but not `interior`, and do not overlap: one above and one below, as wide
// as `outer`, and one at either side. `interior` may be empty or lie wholly or partly outside.
inline std::vector<Rect> stripsAround(const Rect& outer, const Rect& interior)
{
    if (!intersects(outer, interior))
        return {outer};
    const double left = std::max(interior.minX(), outer.minX());
    const double right = std::min(interior.maxX(), outer.maxX());
    const double bottom = std::max(interior.minY(), outer.minY());
    const double top = std::min(interior.maxY(), outer.maxY());
    std::vector<Rect> strips{
        {outer.minX(), top, outer.width, outer.maxY() - top},
        {outer.minX(), outer.minY(), outer.width, bottom - outer.minY()},
        {outer.minX(), bottom, left - outer.minX(), top - bottom},
        {right, bottom, outer.maxX() - right, top - bottom},
    };
    std::erase_if(strips, [](const Rect& strip) { return !(strip.width > 0 && strip.height > 0); });
    return strips;
}

} // namespace haloric
