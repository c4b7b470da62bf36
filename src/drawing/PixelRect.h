// A rectangle of whole pixels, y downward. Which pixel is (0, 0) is for each user to state.
#pragma once

#include <algorithm>

namespace haloric {

struct PixelRect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    constexpr int maxX() const { return x + width; }
    constexpr int maxY() const { return y + height; }
    constexpr bool empty() const { return width <= 0 || height <= 0; }

    constexpr bool contains(const PixelRect& other) const
    {
        return x <= other.x && y <= other.y && maxX() >= other.maxX() && maxY() >= other.maxY();
    }

    friend bool operator==(const PixelRect&, const PixelRect&) = default;
};

// Empty, with a size of zero, when the two share no pixel.
constexpr PixelRect intersection(const PixelRect& a, const PixelRect& b)
{
    const int x = std::max(a.x, b.x);
    const int y = std::max(a.y, b.y);
    return {x, y, std::max(0, std::min(a.maxX(), b.maxX()) - x), std::max(0, std::min(a.maxY(), b.maxY()) - y)};
}

} // namespace haloric
