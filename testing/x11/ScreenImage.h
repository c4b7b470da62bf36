// A picture of a part of the screen, in root coordinates, for tests that look at pixels.
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

// A colour as the screen shows it: 0xRRGGBB.
using Pixel = std::uint32_t;

// The largest difference of any channel.
int colorDistance(Pixel a, Pixel b);

// The colour that `top` makes on `bottom` when it covers it with `opacity` (0...1).
Pixel blended(Pixel top, Pixel bottom, double opacity);

class ScreenImage {
public:
    ScreenImage() = default;
    ScreenImage(const ScreenRect& area, std::vector<Pixel> pixels) : m_area(area), m_pixels(std::move(pixels)) {}

    const ScreenRect& area() const { return m_area; }
    const std::vector<Pixel>& pixels() const { return m_pixels; } // row by row, tightly packed
    bool isEmpty() const { return m_pixels.empty(); }

    // The pixel at a root coordinate inside the area; outside it, a value that no screen shows.
    Pixel at(int x, int y) const;

    bool savePng(const std::filesystem::path& path) const;

    // Whether there is text on it: it has more colours than a plain area has.
    bool isPainted() const;

    friend bool operator==(const ScreenImage&, const ScreenImage&) = default;

private:
    ScreenRect m_area;
    std::vector<Pixel> m_pixels;
};

// What holds every pixel in which two pictures of the same area differ; empty size when they are the same.
ScreenRect boundsOfDifference(const ScreenImage& a, const ScreenImage& b);

} // namespace haloric
