// Open lines, and how they are stroked.
#pragma once

#include "foundation/Geometry.h"

#include <vector>

namespace haloric {

// From point to point; not closed.
struct Polyline {
    std::vector<Point> points;
    friend bool operator==(const Polyline&, const Polyline&) = default;
};

// How a line ends: at its last point, or half its width beyond, in a half circle.
enum class LineCap { butt, round };

// The outer side of a corner: drawn to a point (cut off if it would be longer than 10 times half the width), or round.
enum class LineJoin { miter, round };

struct LineStyle {
    double width = 1; // points, centred on the line
    LineCap cap = LineCap::butt;
    LineJoin join = LineJoin::miter;
    friend bool operator==(const LineStyle&, const LineStyle&) = default;
};

} // namespace haloric
