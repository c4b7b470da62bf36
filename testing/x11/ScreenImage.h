// A picture of a part of the screen. All coordinates are root coordinates: pixels, y downward.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace haloric {

struct ScreenRect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    int right() const { return x + width; }
    int bottom() const { return y + height; }
    friend bool operator==(const ScreenRect&, const ScreenRect&) = default;
};

// The rectangle with each edge moved outward by `by` pixels; a negative value moves them inward.
ScreenRect grown(const ScreenRect& rect, int by);

// A colour: 0xRRGGBB.
using Pixel = std::uint32_t;

// The largest difference of a channel.
int colorDistance(Pixel a, Pixel b);

// The colour of `top` over `bottom` with `opacity` (0...1).
Pixel blended(Pixel top, Pixel bottom, double opacity);

class ScreenImage {
public:
    ScreenImage() = default;
    ScreenImage(const ScreenRect& area, std::vector<Pixel> pixels) : m_area(area), m_pixels(std::move(pixels)) {}

    const ScreenRect& area() const { return m_area; }
    const std::vector<Pixel>& pixels() const { return m_pixels; } // row by row, tightly packed
    bool isEmpty() const { return m_pixels.empty(); }

    // The pixel at a root coordinate; outside the area, a value above 0xFFFFFF.
    Pixel at(int x, int y) const;

    // Creates missing folders. False when the file cannot be written.
    bool savePng(const std::filesystem::path& path) const;

    // Whether it shows text: it has more colours than a plain area.
    bool isPainted() const;

    friend bool operator==(const ScreenImage&, const ScreenImage&) = default;

private:
    ScreenRect m_area;
    std::vector<Pixel> m_pixels;
};

// The bounding rectangle of all pixels in which two pictures of the same area differ; empty size if they are equal.
ScreenRect boundsOfDifference(const ScreenImage& a, const ScreenImage& b);

} // namespace haloric
