// Turns a view's points (origin at the bottom left, y upward) into its pixels (origin at the top left, y downward).
// Takes any number: what is not one gives an empty shape, what is too large is cut to a million pixels. Pure.
#pragma once

#include "drawing/DeviceShape.h"
#include "drawing/LineStyle.h"
#include "drawing/Path.h"
#include "drawing/PixelRect.h"

#include <vector>

namespace haloric {

// The two outlines between which a stroke lies. An empty inner one means that the stroke covers all of the outer.
struct StrokeOutline {
    DeviceShape outer;
    DeviceShape inner;
};

class DeviceSpace {
public:
    // `scale`: pixels a point; a scale that is not above zero counts as 1.
    DeviceSpace(double scale, Size viewSize);

    double scale() const { return m_scale; }

    // Every pixel that the view touches. The top edge of the view is the top edge of its first row.
    PixelRect pixels() const { return m_pixels; }

    // A plain rectangle that reaches the view's right or bottom edge takes in the whole of the last pixels there, which
    // a fractional scale would leave half covered: the edge of a window is the edge of a pixel.
    DeviceShape shape(const Path::Shape& shape) const;

    // Centred on the shape's edge. Corners of a plain rectangle stay sharp, round ones stay round.
    StrokeOutline stroke(const Path::Shape& shape, double lineWidth) const;

    // Appends the line's points. Adds nothing for a line that has fewer than two, or a coordinate that is no number or
    // infinite.
    void addLine(const Polyline& line, std::vector<DevicePoint>& points) const;

    // A length in points as pixels, cut to 0...`limit`.
    double length(double points, double limit) const;

private:
    DeviceShape map(const Rect& rect, double radius) const;

    double m_scale;
    Size m_viewSize;
    PixelRect m_pixels;
};

} // namespace haloric
