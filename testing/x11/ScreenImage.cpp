#include "testing/x11/ScreenImage.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <set>

#include <cairo/cairo.h>

namespace haloric {
namespace {

constexpr Pixel kNoPixel = 0xFF000000;
constexpr int kChannelShifts[] = {16, 8, 0};

int channel(Pixel pixel, int shift) { return static_cast<int>((pixel >> shift) & 0xFF); }

} // namespace

ScreenRect grown(const ScreenRect& rect, int by)
{
    return {rect.x - by, rect.y - by, rect.width + 2 * by, rect.height + 2 * by};
}

int colorDistance(Pixel a, Pixel b)
{
    int largest = 0;
    for (const int shift : kChannelShifts)
        largest = std::max(largest, std::abs(channel(a, shift) - channel(b, shift)));
    return largest;
}

Pixel blended(Pixel top, Pixel bottom, double opacity)
{
    Pixel result = 0;
    for (const int shift : kChannelShifts) {
        const double value = channel(top, shift) * opacity + channel(bottom, shift) * (1 - opacity);
        result |= static_cast<Pixel>(std::lround(value)) << shift;
    }
    return result;
}

Pixel ScreenImage::at(int x, int y) const
{
    if (x < m_area.x || y < m_area.y || x >= m_area.right() || y >= m_area.bottom())
        return kNoPixel;
    return m_pixels[static_cast<std::size_t>(y - m_area.y) * static_cast<std::size_t>(m_area.width) +
                    static_cast<std::size_t>(x - m_area.x)];
}

bool ScreenImage::savePng(const std::filesystem::path& path) const
{
    std::error_code ignored;
    std::filesystem::create_directories(path.parent_path(), ignored);
    std::vector<Pixel> pixels = m_pixels; // tightly packed, as this format has its rows; cairo needs write access
    cairo_surface_t* surface = cairo_image_surface_create_for_data(reinterpret_cast<unsigned char*>(pixels.data()),
                                                                   CAIRO_FORMAT_RGB24, m_area.width, m_area.height,
                                                                   m_area.width * static_cast<int>(sizeof(Pixel)));
    const bool written = cairo_surface_write_to_png(surface, path.c_str()) == CAIRO_STATUS_SUCCESS;
    cairo_surface_destroy(surface);
    return written;
}

bool ScreenImage::isPainted() const
{
    constexpr std::size_t kTextColors = 8;
    return std::set<Pixel>(m_pixels.begin(), m_pixels.end()).size() >= kTextColors;
}

ScreenRect boundsOfDifference(const ScreenImage& a, const ScreenImage& b)
{
    const ScreenRect& area = a.area();
    int left = area.right();
    int right = area.x;
    int top = area.bottom();
    int bottom = area.y;
    for (int y = area.y; y < area.bottom(); ++y) {
        for (int x = area.x; x < area.right(); ++x) {
            if (a.at(x, y) == b.at(x, y))
                continue;
            left = std::min(left, x);
            right = std::max(right, x + 1);
            top = std::min(top, y);
            bottom = std::max(bottom, y + 1);
        }
    }
    return left < right ? ScreenRect{left, top, right - left, bottom - top} : ScreenRect{};
}

} // namespace haloric
