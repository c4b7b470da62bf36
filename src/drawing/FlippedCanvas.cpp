#include "drawing/FlippedCanvas.h"

namespace haloric {

void FlippedCanvas::fill(const Path& path, const Color& color, FillRule rule)
{
    m_canvas.fill(flipped(path), color, rule);
}

void FlippedCanvas::fillRect(const Rect& rect, const Color& color, CompositingOperation operation)
{
    m_canvas.fillRect(flippedVertically(rect, m_height), color, operation);
}

void FlippedCanvas::stroke(const Path& path, const Color& color, double lineWidth)
{
    m_canvas.stroke(flipped(path), color, lineWidth);
}

void FlippedCanvas::strokeLines(std::span<const Polyline> lines, const Color& color, const LineStyle& style)
{
    std::vector<Polyline> flippedLines(lines.begin(), lines.end());
    for (Polyline& line : flippedLines)
        for (Point& point : line.points)
            point.y = m_height - point.y;
    m_canvas.strokeLines(flippedLines, color, style);
}

Path FlippedCanvas::flipped(const Path& path) const
{
    Path result;
    for (const Path::Shape& shape : path.shapes()) {
        if (const auto* rect = std::get_if<Rect>(&shape)) {
            result.add(flippedVertically(*rect, m_height));
        } else {
            const auto& rounded = std::get<RoundedRect>(shape);
            result.add(RoundedRect{flippedVertically(rounded.rect, m_height), rounded.radius});
        }
    }
    return result;
}

} // namespace haloric
