#include "x11/demo/DemoPictures.h"

#include <functional>
#include <memory>

#include <cairo/cairo.h>

namespace haloric {
namespace {

void setColor(cairo_t* context, Pixel color)
{
    constexpr double kMost = 255.0;
    cairo_set_source_rgb(context, static_cast<double>((color >> 16) & 0xFF) / kMost,
                         static_cast<double>((color >> 8) & 0xFF) / kMost, static_cast<double>(color & 0xFF) / kMost);
}

void fill(cairo_t* context, Pixel color, double x, double y, double width, double height)
{
    setColor(context, color);
    cairo_rectangle(context, x, y, width, height);
    cairo_fill(context);
}

void write(cairo_t* context, Pixel color, const char* family, double size, double x, double y, const char* text)
{
    setColor(context, color);
    cairo_select_font_face(context, family, CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(context, size);
    cairo_move_to(context, x, y);
    cairo_show_text(context, text);
}

ScreenImage paint(int width, int height, const std::function<void(cairo_t*)>& draw)
{
    std::vector<Pixel> pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    const std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> surface(
        cairo_image_surface_create_for_data(reinterpret_cast<unsigned char*>(pixels.data()), CAIRO_FORMAT_RGB24, width,
                                            height, width * static_cast<int>(sizeof(Pixel))),
        cairo_surface_destroy);
    const std::unique_ptr<cairo_t, decltype(&cairo_destroy)> context(cairo_create(surface.get()), cairo_destroy);
    draw(context.get());
    cairo_surface_flush(surface.get());
    return {{0, 0, width, height}, std::move(pixels)};
}

} // namespace

ScreenImage paintDesktop(int width, int height)
{
    return paint(width, height, [&](cairo_t* context) {
        cairo_pattern_t* slope = cairo_pattern_create_linear(0, 0, width, height);
        cairo_pattern_add_color_stop_rgb(slope, 0, 0.80, 0.84, 0.89);
        cairo_pattern_add_color_stop_rgb(slope, 1, 0.55, 0.63, 0.72);
        cairo_set_source(context, slope);
        cairo_paint(context);
        cairo_pattern_destroy(slope);
    });
}

ScreenImage paintNotes(int width, int height)
{
    return paint(width, height, [&](cairo_t* context) {
        fill(context, 0xFBFAF7, 0, 0, width, height);
        fill(context, 0xEFEBE2, 0, 0, 150, height);
        int y = 40;
        for (const char* title : {"Today", "Groceries", "Holiday plans", "Books"}) {
            write(context, 0x6B6457, "sans", 14, 18, y, title);
            y += 32;
        }
        write(context, 0x2B2A27, "sans", 24, 178, 52, "Today");
        y = 92;
        for (const char* line : {"Call the plumber about the kitchen", "Finish the chapter on tides",
                                 "Water the tomatoes before noon", "Tickets for Saturday"}) {
            write(context, 0x45433E, "sans", 15, 178, y, line);
            y += 30;
        }
    });
}

ScreenImage paintGallery(int width, int height)
{
    return paint(width, height, [&](cairo_t* context) {
        fill(context, 0xF2F4F6, 0, 0, width, height);
        constexpr Pixel kTones[] = {0x7BA05B, 0xD9A441, 0x5B8FA8, 0xB5651D, 0x8E6C8A, 0x4F7942};
        constexpr int kColumns = 3;
        constexpr double kGap = 20;
        const double side = (width - (kColumns + 1) * kGap) / kColumns;
        for (int index = 0; index < 6; ++index) {
            const int column = index % kColumns;
            const int row = index / kColumns;
            const double x = kGap + column * (side + kGap);
            const double y = kGap + row * (side * 0.75 + kGap);
            fill(context, kTones[index], x, y, side, side * 0.75);
            fill(context, 0xDCE6EC, x, y, side, side * 0.32);
        }
    });
}

ScreenImage paintTerminal(int width, int height)
{
    return paint(width, height, [&](cairo_t* context) {
        fill(context, 0x22272E, 0, 0, width, height);
        int y = 34;
        for (const char* line :
             {"~ $ make", "[1/3] tide.cpp", "[2/3] moon.cpp", "[3/3] almanac", "~ $ ./almanac --today",
              "High water 06:12 and 18:40", "Low water 00:03 and 12:25", "~ $ _"}) {
            write(context, 0xC6D0DA, "monospace", 15, 18, y, line);
            y += 26;
        }
    });
}

} // namespace haloric
