#include "demo/DemoPainter.h"

#include <cmath>
#include <cstring>
#include <numbers>

namespace haloric {
namespace {

constexpr double kQuarter = std::numbers::pi / 2;

double channel(Pixel color, int shift) { return static_cast<double>((color >> shift) & 0xFF) / 255.0; }

} // namespace

DemoPainter::DemoPainter(int width, int height, int scale)
    : m_width(width),
      m_height(height),
      m_surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, width * scale, height * scale)),
      m_context(cairo_create(m_surface.get()))
{
    cairo_scale(m_context.get(), scale, scale);
}

void DemoPainter::setColor(Pixel color)
{
    cairo_set_source_rgb(m_context.get(), channel(color, 16), channel(color, 8), channel(color, 0));
}

void DemoPainter::fill(Pixel color, double x, double y, double width, double height, double radius)
{
    cairo_t* context = m_context.get();
    setColor(color);
    cairo_new_sub_path(context);
    cairo_arc(context, x + width - radius, y + radius, radius, -kQuarter, 0);
    cairo_arc(context, x + width - radius, y + height - radius, radius, 0, kQuarter);
    cairo_arc(context, x + radius, y + height - radius, radius, kQuarter, 2 * kQuarter);
    cairo_arc(context, x + radius, y + radius, radius, 2 * kQuarter, 3 * kQuarter);
    cairo_close_path(context);
    cairo_fill(context);
}

void DemoPainter::fillDownward(Pixel top, Pixel bottom, double x, double y, double width, double height)
{
    cairo_t* context = m_context.get();
    cairo_pattern_t* slope = cairo_pattern_create_linear(0, y, 0, y + height);
    cairo_pattern_add_color_stop_rgb(slope, 0, channel(top, 16), channel(top, 8), channel(top, 0));
    cairo_pattern_add_color_stop_rgb(slope, 1, channel(bottom, 16), channel(bottom, 8), channel(bottom, 0));
    cairo_set_source(context, slope);
    cairo_pattern_destroy(slope);
    cairo_rectangle(context, x, y, width, height);
    cairo_fill(context);
}

void DemoPainter::disc(Pixel color, double x, double y, double radius)
{
    setColor(color);
    cairo_arc(m_context.get(), x, y, radius, 0, 4 * kQuarter);
    cairo_fill(m_context.get());
}

void DemoPainter::hill(Pixel color, std::initializer_list<DemoPoint> line, double bottom)
{
    cairo_t* context = m_context.get();
    setColor(color);
    const DemoPoint* before = line.begin();
    cairo_move_to(context, before->x, bottom);
    cairo_line_to(context, before->x, before->y);
    for (const DemoPoint* point = before + 1; point != line.end(); before = point++) {
        const double middle = (before->x + point->x) / 2;
        cairo_curve_to(context, middle, before->y, middle, point->y, point->x, point->y);
    }
    cairo_line_to(context, before->x, bottom);
    cairo_fill(context);
}

void DemoPainter::stroke(Pixel color, double width, std::initializer_list<DemoPoint> line)
{
    cairo_t* context = m_context.get();
    setColor(color);
    cairo_set_line_width(context, width);
    cairo_set_line_cap(context, CAIRO_LINE_CAP_ROUND);
    cairo_set_line_join(context, CAIRO_LINE_JOIN_ROUND);
    for (const DemoPoint& point : line)
        cairo_line_to(context, point.x, point.y);
    cairo_stroke(context);
}

void DemoPainter::write(Pixel color, Font font, double size, double x, double y, const char* text)
{
    cairo_t* context = m_context.get();
    setColor(color);
    cairo_select_font_face(context, font == Font::monospace ? "monospace" : "sans", CAIRO_FONT_SLANT_NORMAL,
                           font == Font::bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(context, size);
    cairo_move_to(context, x, y);
    cairo_show_text(context, text);
}

ScreenImage DemoPainter::picture() const
{
    cairo_surface_flush(m_surface.get());
    const int width = cairo_image_surface_get_width(m_surface.get());
    const int height = cairo_image_surface_get_height(m_surface.get());
    const unsigned char* row = cairo_image_surface_get_data(m_surface.get());
    std::vector<Pixel> pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    for (int y = 0; y < height; ++y, row += cairo_image_surface_get_stride(m_surface.get()))
        std::memcpy(pixels.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(width), row,
                    static_cast<std::size_t>(width) * sizeof(Pixel));
    for (Pixel& pixel : pixels)
        pixel &= 0xFFFFFF;
    return {{0, 0, width, height}, std::move(pixels)};
}

} // namespace haloric
