// Any path as a mask of eight bits per pixel, rendered by Cairo. Much slower than CoveragePainter. Main thread.
#pragma once

#include "drawing/DeviceShape.h"
#include "drawing/LineStyle.h"
#include "drawing/Path.h"
#include "drawing/PixelRect.h"

#include <cstdint>
#include <span>
#include <vector>

namespace haloric {

// The path of a mask. Refers to the caller's shapes.
struct MaskPath {
    std::span<const DeviceShape> shapes;
    FillRule rule = FillRule::nonZero;
    double lineWidth = 0; // pixels; a stroke if above zero, else a fill

    // The caller's open lines, for a stroke, instead of shapes.
    std::span<const DevicePoint> linePoints{};
    LineCap cap = LineCap::butt;
    LineJoin join = LineJoin::miter;

    // Every pixel that it may cover.
    PixelRect bounds() const;

private:
    int margin() const;
};

class PathMask {
public:
    // The mask becomes that of `path` in `area`. Reuses its memory.
    void render(const MaskPath& path, const PixelRect& area);

    // Every pixel of `area` becomes 255.
    void renderFull(const PixelRect& area);

    // The mask becomes the part of another, larger one that lies in `area`.
    void copyPart(const PathMask& other, const PixelRect& area);

    // Multiplies by another mask of the same area.
    void multiplyBy(const PathMask& other);

    const PixelRect& area() const { return m_area; }

    // `y` in the space of `area`, the first pixel being the area's leftmost.
    const std::uint8_t* row(int y) const { return m_data.data() + offset(y); }

private:
    void setArea(const PixelRect& area, std::uint8_t value);
    std::size_t offset(int y) const
    {
        return static_cast<std::size_t>(y - m_area.y) * static_cast<std::size_t>(m_stride);
    }

    PixelRect m_area;
    int m_stride = 0;
    std::vector<std::uint8_t> m_data;
};

} // namespace haloric
