// Plain geometry in double precision, for any coordinate space: each user states which.
#pragma once

#include <algorithm>
#include <cmath>

namespace haloric {

struct Point {
    double x = 0;
    double y = 0;
    friend bool operator==(const Point&, const Point&) = default;
};

struct Size {
    double width = 0;
    double height = 0;
    friend bool operator==(const Size&, const Size&) = default;
};

// A rectangle by origin and size. Width and height are expected to be zero or more.
// "min" and "max" name the edges by coordinate value, so they hold in spaces with y upward and y downward alike.
struct Rect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    constexpr double minX() const { return x; }
    constexpr double minY() const { return y; }
    constexpr double maxX() const { return x + width; }
    constexpr double maxY() const { return y + height; }
    constexpr Point origin() const { return {x, y}; }
    constexpr Size size() const { return {width, height}; }

    // Moves every edge inward by `amount`; a negative amount grows the rectangle.
    constexpr Rect insetBy(double amount) const
    {
        return {x + amount, y + amount, width - 2 * amount, height - 2 * amount};
    }

    constexpr Rect translatedBy(double dx, double dy) const { return {x + dx, y + dy, width, height}; }

    friend bool operator==(const Rect&, const Rect&) = default;
};

// The area that both rectangles cover; 0 when they share none.
constexpr double intersectionArea(const Rect& a, const Rect& b)
{
    const double width = std::min(a.maxX(), b.maxX()) - std::max(a.minX(), b.minX());
    const double height = std::min(a.maxY(), b.maxY()) - std::max(a.minY(), b.minY());
    return width > 0 && height > 0 ? width * height : 0;
}

constexpr bool intersects(const Rect& a, const Rect& b) { return intersectionArea(a, b) > 0; }

// Whether every coordinate and edge is a number, neither infinite nor NaN.
inline bool isFinite(const Rect& rect)
{
    return std::isfinite(rect.minX()) && std::isfinite(rect.minY()) && std::isfinite(rect.width) &&
           std::isfinite(rect.height) && std::isfinite(rect.maxX()) && std::isfinite(rect.maxY());
}

// Converts between screen space (origin at the bottom left of the primary screen, y upward) and the window
// server's global space (origin at its top left, y downward). The same formula converts both ways.
// `primaryMaxY` is the maximum y of the first screen's frame.
constexpr Rect flippedVertically(const Rect& rect, double primaryMaxY)
{
    return {rect.x, primaryMaxY - rect.maxY(), rect.width, rect.height};
}

} // namespace haloric
