// Draws a picture of simple shapes and text. Lengths are points, y downward, so that one drawing serves every scale.
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

    // `width` and `height` in points, `scale` in pixels per point. The picture starts black.
    DemoPainter(int width, int height, int scale);

    double width() const { return m_width; }
    double height() const { return m_height; }

    // Colours are 0xRRGGBB.
    void fill(Pixel color, double x, double y, double width, double height, double radius = 0);
    void fillDownward(Pixel top, Pixel bottom, double x, double y, double width, double height);
    void disc(Pixel color, double x, double y, double radius);

    // Fills the area between a smooth line through these points and `bottom`.
    void hill(Pixel color, std::initializer_list<DemoPoint> line, double bottom);
    void stroke(Pixel color, double width, std::initializer_list<DemoPoint> line);

    // `y` is the baseline.
    void write(Pixel color, Font font, double size, double x, double y, const char* text);

    // The picture, in pixels.
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
