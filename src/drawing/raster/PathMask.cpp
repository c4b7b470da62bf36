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

// Where the control points of a quarter circle lie, as a part of its radius.
constexpr double kArcHandle = 0.5522847498;

// Adds shapes on the 1/256 grid that Cairo rounds to, so that a shift by whole pixels shifts the result and no more.
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

private:
    double x(int units) const { return static_cast<double>(units) / DeviceShape::kUnit - m_area.x; }
    double y(int units) const { return static_cast<double>(units) / DeviceShape::kUnit - m_area.y; }

    cairo_t* m_context;
    PixelRect m_area;
};

} // namespace

PixelRect MaskPath::bounds() const
{
    PixelRect all;
    const int margin = lineWidth > 0 ? static_cast<int>(std::ceil(lineWidth)) : 0; // sharp corners reach √2 / 2 of it
    for (const DeviceShape& shape : shapes) {
        if (shape.empty())
            continue;
        const PixelRect box{pixelFloor(shape.x0) - margin, pixelFloor(shape.y0) - margin,
                            pixelCeil(shape.x1) - pixelFloor(shape.x0) + 2 * margin,
                            pixelCeil(shape.y1) - pixelFloor(shape.y0) + 2 * margin};
        if (all.empty()) {
            all = box;
            continue;
        }
        const int x = std::min(all.x, box.x);
        const int y = std::min(all.y, box.y);
        all = {x, y, std::max(all.maxX(), box.maxX()) - x, std::max(all.maxY(), box.maxY()) - y};
    }
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
    if (path.lineWidth > 0) {
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
