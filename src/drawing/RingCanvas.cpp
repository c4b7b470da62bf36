#include "drawing/RingCanvas.h"

#include <cmath>

namespace haloric {

namespace {

constexpr double kMaxThickness = 1 << 16;

// A rounded rectangle of whole pixels, row by row.
struct PixelRing {
    int x0 = 0;
    int y0 = 0;
    int x1 = 0;
    int y1 = 0;
    double radius = 0;

    bool holdsRow(int row) const { return row >= y0 && row < y1 && x1 > x0; }

    // The distance of the row's ends from the sides, measured at the middle of the row.
    int insetOf(int row) const
    {
        const double depth = std::min(row - y0, y1 - 1 - row) + 0.5;
        if (depth >= radius)
            return 0;
        const double leg = radius - depth;
        return static_cast<int>(std::lround(radius - std::sqrt(radius * radius - leg * leg)));
    }

    PixelRing insetBy(int pixels) const
    {
        return {x0 + pixels, y0 + pixels, x1 - pixels, y1 - pixels, std::max(radius - pixels, 0.0)};
    }
};

// The pixels of one row of a ring: from begin to end, except the hole.
struct RingRow {
    int begin = 0;
    int holeBegin = 0;
    int holeEnd = 0;
    int end = 0;
    friend bool operator==(const RingRow&, const RingRow&) = default;
};

RingRow rowOf(const PixelRing& outer, const PixelRing& inner, int row)
{
    const int inset = outer.insetOf(row);
    RingRow result{outer.x0 + inset, 0, 0, outer.x1 - inset};
    const int innerInset = inner.holdsRow(row) ? inner.insetOf(row) : 0;
    const bool hasHole = inner.holdsRow(row) && inner.x0 + innerInset < inner.x1 - innerInset;
    result.holeBegin = hasHole ? inner.x0 + innerInset : result.end;
    result.holeEnd = hasHole ? inner.x1 - innerInset : result.end;
    return result;
}

int nearestPixel(int units) { return pixelFloor(units + DeviceShape::kUnit / 2); }

} // namespace

void RingCanvas::stroke(const Path& path, const Color& color, double lineWidth)
{
    if (!(color.alpha > 0) || !(lineWidth > 0) || !std::isfinite(lineWidth))
        return;
    const int thickness = std::max(1, static_cast<int>(std::lround(m_space.length(lineWidth, kMaxThickness))));
    const std::size_t before = m_rects.size();
    for (const Path::Shape& shape : path.shapes()) {
        const DeviceShape outer = m_space.stroke(shape, lineWidth).outer;
        if (!outer.empty())
            addRing(outer, thickness);
    }
    if (!m_color && m_rects.size() > before)
        m_color = color.withAlpha(1);
}

void RingCanvas::addRing(const DeviceShape& shape, int thickness)
{
    const PixelRing outer{nearestPixel(shape.x0), nearestPixel(shape.y0), nearestPixel(shape.x1),
                          nearestPixel(shape.y1), static_cast<double>(shape.radius) / DeviceShape::kUnit};
    const PixelRing inner = outer.insetBy(thickness);
    const int bottom = std::min(outer.y1, m_space.pixels().maxY());
    for (int row = std::max(outer.y0, 0); row < bottom;) {
        const int top = row;
        const RingRow first = rowOf(outer, inner, row);
        while (++row < bottom && rowOf(outer, inner, row) == first)
            continue;
        addRun(first.begin, first.holeBegin, top, row);
        addRun(first.holeEnd, first.end, top, row);
    }
}

void RingCanvas::addRun(int begin, int end, int top, int bottom)
{
    const PixelRect run = intersection({begin, top, end - begin, bottom - top}, m_space.pixels());
    if (!run.empty())
        m_rects.push_back(run);
}

} // namespace haloric
