// Draws a picture of simple shapes and text, in points: the same drawing serves ordinary and dense screens.
#pragma once

#include "testing/x11/ScreenImage.h"

#include <initializer_list>
#include <memory>

#include <cairo/cairo.h>

namespace haloric {

struct DemoPoint {
    double x = 0;
    double y = 0;
};

class DemoPainter {
public:
    enum class Font { sans, bold, monospace };

    // `width` and `height` in points, `scale` in pixels a point. The picture is black at first.
    DemoPainter(int width, int height, int scale);

    double width() const { return m_width; }
    double height() const { return m_height; }

    // Colours are 0xRRGGBB.
    void fill(Pixel color, double x, double y, double width, double height, double radius = 0);
    void fillDownward(Pixel top, Pixel bottom, double x, double y, double width, double height);
    void disc(Pixel color, double x, double y, double radius);

    // Everything below a smooth line through these points, within the rectangle that the outer ones span.
    void hill(Pixel color, std::initializer_list<DemoPoint> line, double bottom);
    void stroke(Pixel color, double width, std::initializer_list<DemoPoint> line);

    // `y` is the base line.
    void write(Pixel color, Font font, double size, double x, double y, const char* text);

    // What was drawn, in pixels.
    ScreenImage picture() const;

private:
    struct Release {
        void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
        void operator()(cairo_t* context) const { cairo_destroy(context); }
    };

    void setColor(Pixel color);

    int m_width;
    int m_height;
    std::unique_ptr<cairo_surface_t, Release> m_surface;
    std::unique_ptr<cairo_t, Release> m_context;
};

} // namespace haloric
