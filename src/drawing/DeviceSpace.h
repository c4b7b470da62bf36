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
    // `scale`: pixels a point; a scale that is not above zero counts as 1. `offset`: how far right of and below the
    // first pixel's corner the view's lies, half a pixel at most; the pixels stay those of a view without one.
    DeviceSpace(double scale, Size viewSize, Point offset = {});

    double scale() const { return m_scale; }

    // Every pixel that the view touches when its top edge is the top edge of its first row.
    PixelRect pixels() const { return m_pixels; }

    // A plain rectangle that reaches an edge of the view takes in the whole of the last pixels there, which a
    // fractional scale or an offset would leave half covered: the edge of a window is the edge of a pixel.
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
    double toPixelX(double x) const { return x * m_scale + m_offset.x; }
    double toPixelY(double y) const { return (m_viewSize.height - y) * m_scale + m_offset.y; }

    double m_scale;
    Size m_viewSize;
    Point m_offset; // pixels
    PixelRect m_pixels;
};

} // namespace haloric
