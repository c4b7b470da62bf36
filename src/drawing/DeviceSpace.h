// Converts a view's points (origin at the bottom left, y upward) to its pixels (origin at the top left, y downward).
// Accepts any value: NaN gives an empty shape, and too large values are limited to a million pixels. Pure.
#pragma once

#include "drawing/DeviceShape.h"
#include "drawing/LineStyle.h"
#include "drawing/Path.h"
#include "drawing/PixelRect.h"

#include <vector>

namespace haloric {

// The two outlines of a stroke. If the inner one is empty, the stroke covers all of the outer one.
struct StrokeOutline {
    DeviceShape outer;
    DeviceShape inner;
};

class DeviceSpace {
public:
    // `scale`: pixels per point; 1 if it is not above zero. `offset`: from the first pixel's upper left corner to the
    // view's, to the right and down, in pixels, half a pixel at most. It does not change `pixels`.
    DeviceSpace(double scale, Size viewSize, Point offset = {});

    double scale() const { return m_scale; }

    // Every pixel that the view touches if it starts at the corner of the first pixel.
    PixelRect pixels() const { return m_pixels; }

    // A plain rectangle that reaches an edge of the view is extended to cover the last pixels there completely, which a
    // fractional scale or an offset would leave half covered: the edge of a window is the edge of a pixel.
    DeviceShape shape(const Path::Shape& shape) const;

    // Centred on the shape's edge. Corners of a plain rectangle stay sharp, round ones stay round.
    StrokeOutline stroke(const Path::Shape& shape, double lineWidth) const;

    // Appends the line's points. Appends nothing for a line with fewer than two points or with a coordinate that is not
    // finite.
    void addLine(const Polyline& line, std::vector<DevicePoint>& points) const;

    // A length in points as pixels, limited to 0...`limit`.
    double length(double points, double limit) const;

private:
    DeviceShape map(const Rect& rect, double radius) const;
    double toPixelX(double x) const { return x * m_scale + m_offset.x; }
    double toPixelY(double y) const { return (m_viewSize.height - y) * m_scale + m_offset.y; }

    double m_scale;
    Size m_viewSize;
    Point m_offset; // pixels
    PixelRect m_pixels;
};

} // namespace haloric
