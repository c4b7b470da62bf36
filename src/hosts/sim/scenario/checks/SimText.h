// Geometry for messages, and comparisons with a tolerance.
#pragma once

#include "foundation/Geometry.h"

#include <cmath>
#include <cstdio>
#include <string>

namespace haloric {

inline std::string simText(const Rect& rect)
{
    char buffer[120];
    std::snprintf(buffer, sizeof buffer, "[%.10g, %.10g, %.10g, %.10g]", rect.x, rect.y, rect.width, rect.height);
    return buffer;
}

// Converting between spaces twice may cost a few bits; a hundredth of a point is not visible.
inline bool simNear(const Rect& a, const Rect& b)
{
    const auto near = [](double x, double y) { return std::abs(x - y) < 0.01; };
    return near(a.x, b.x) && near(a.y, b.y) && near(a.width, b.width) && near(a.height, b.height);
}

} // namespace haloric
