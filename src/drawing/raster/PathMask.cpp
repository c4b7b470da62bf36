#include "drawing/raster/PathMask.h"

#include <algorithm>
#include <cairo.h>
#include <cmath>
#include <memory>

namespace haloric {

namespace {

struct CairoDeleter {
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    void operator()(cairo_t* context) const { cairo_destroy(context); }
};

// Finer than the default of a tenth of a pixel, which shows in the corners.
constexpr double kFlatness = 0.02;

// The maximum length of a sharp corner, in halves of the line's width.
constexpr double kMiterLimit = 10;

// The distance of a quarter circle's control points from its ends, as a part of its radius.
constexpr double kArcHandle = 0.5522847498;

// Adds shapes on the 1/256 grid that Cairo rounds to, so that a shift by whole pixels only shifts the result.
class CairoPath {
public:
    CairoPath(cairo_t* context, const PixelRect& area) : m_context(context), m_area(area) {}

    void add(const DeviceShape& shape) const
    {
        const int r = shape.radius;
        const int h = r - static_cast<int>(std::lround(r * kArcHandle));
        const auto [x0, y0, x1, y1, radius] = shape;
        cairo_new_sub_path(m_context);
        cairo_move_to(m_context, x(x0 + r), y(y0));
        cairo_line_to(m_context, x(x1 - r), y(y0));
        if (r > 0)
            cairo_curve_to(m_context, x(x1 - h), y(y0), x(x1), y(y0 + h), x(x1), y(y0 + r));
        cairo_line_to(m_context, x(x1), y(y1 - r));
        if (r > 0)
            cairo_curve_to(m_context, x(x1), y(y1 - h), x(x1 - h), y(y1), x(x1 - r), y(y1));
        cairo_line_to(m_context, x(x0 + r), y(y1));
        if (r > 0)
            cairo_curve_to(m_context, x(x0 + h), y(y1), x(x0), y(y1 - h), x(x0), y(y1 - r));
        cairo_line_to(m_context, x(x0), y(y0 + r));
        if (r > 0)
            cairo_curve_to(m_context, x(x0), y(y0 + h), x(x0 + h), y(y0), x(x0 + r), y(y0));
        cairo_close_path(m_context);
    }

    void add(const DevicePoint& point) const
    {
        if (point.begins)
            cairo_move_to(m_context, x(point.x), y(point.y));
        else
            cairo_line_to(m_context, x(point.x), y(point.y));
    }

private:
    double x(int units) const { return static_cast<double>(units) / DeviceShape::kUnit - m_area.x; }
    double y(int units) const { return static_cast<double>(units) / DeviceShape::kUnit - m_area.y; }

    cairo_t* m_context;
    PixelRect m_area;
};

} // namespace

// How far a stroke extends beyond its path, in pixels.
int MaskPath::margin() const
{
    if (lineWidth <= 0)
        return 0;
    if (linePoints.empty() || join == LineJoin::round)
        return static_cast<int>(std::ceil(lineWidth)); // right angles reach √2 / 2 of it
    return static_cast<int>(std::ceil(kMiterLimit * lineWidth / 2));
}

PixelRect MaskPath::bounds() const
{
    PixelRect all;
    const int margin = this->margin();
    const auto add = [&](int x0, int y0, int x1, int y1) {
        const PixelRect box{x0 - margin, y0 - margin, x1 - x0 + 2 * margin, y1 - y0 + 2 * margin};
        const int x = all.empty() ? box.x : std::min(all.x, box.x);
        const int y = all.empty() ? box.y : std::min(all.y, box.y);
        const int maxX = all.empty() ? box.maxX() : std::max(all.maxX(), box.maxX());
        const int maxY = all.empty() ? box.maxY() : std::max(all.maxY(), box.maxY());
        all = {x, y, maxX - x, maxY - y};
    };
    for (const DeviceShape& shape : shapes)
        if (!shape.empty())
            add(pixelFloor(shape.x0), pixelFloor(shape.y0), pixelCeil(shape.x1), pixelCeil(shape.y1));
    for (const DevicePoint& point : linePoints)
        add(pixelFloor(point.x), pixelFloor(point.y), pixelCeil(point.x), pixelCeil(point.y));
    return all;
}

void PathMask::setArea(const PixelRect& area, std::uint8_t value)
{
    m_area = area;
    m_stride = cairo_format_stride_for_width(CAIRO_FORMAT_A8, area.width);
    m_data.assign(static_cast<std::size_t>(m_stride) * static_cast<std::size_t>(area.height), value);
}

void PathMask::render(const MaskPath& path, const PixelRect& area)
{
    setArea(area, 0);
    const std::unique_ptr<cairo_surface_t, CairoDeleter> surface(
        cairo_image_surface_create_for_data(m_data.data(), CAIRO_FORMAT_A8, area.width, area.height, m_stride));
    const std::unique_ptr<cairo_t, CairoDeleter> context(cairo_create(surface.get()));
    cairo_set_tolerance(context.get(), kFlatness);
    const CairoPath outline(context.get(), area);
    for (const DeviceShape& shape : path.shapes)
        if (!shape.empty())
            outline.add(shape);
    for (const DevicePoint& point : path.linePoints)
        outline.add(point);
    if (path.lineWidth > 0) {
        cairo_set_line_cap(context.get(), path.cap == LineCap::round ? CAIRO_LINE_CAP_ROUND : CAIRO_LINE_CAP_BUTT);
        cairo_set_line_join(context.get(),
                            path.join == LineJoin::round ? CAIRO_LINE_JOIN_ROUND : CAIRO_LINE_JOIN_MITER);
        cairo_set_miter_limit(context.get(), kMiterLimit);
        cairo_set_line_width(context.get(), path.lineWidth);
        cairo_stroke(context.get());
    } else {
        cairo_set_fill_rule(context.get(),
                            path.rule == FillRule::evenOdd ? CAIRO_FILL_RULE_EVEN_ODD : CAIRO_FILL_RULE_WINDING);
        cairo_fill(context.get());
    }
    cairo_surface_flush(surface.get());
}

void PathMask::renderFull(const PixelRect& area) { setArea(area, 255); }

void PathMask::copyPart(const PathMask& other, const PixelRect& area)
{
    setArea(area, 0);
    for (int y = area.y; y < area.maxY(); ++y)
        std::copy_n(other.row(y) + (area.x - other.m_area.x), area.width, m_data.data() + offset(y));
}

void PathMask::multiplyBy(const PathMask& other)
{
    for (std::size_t i = 0; i < m_data.size(); ++i)
        m_data[i] = static_cast<std::uint8_t>((m_data[i] * other.m_data[i] + 127) / 255);
}

} // namespace haloric
