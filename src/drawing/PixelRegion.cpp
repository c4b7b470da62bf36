#include "drawing/PixelRegion.h"

namespace haloric {

namespace {

// Adds what of `rect` is outside of the rectangles from `from` on.
void addOutside(std::vector<PixelRect>& apart, const PixelRect& rect, std::size_t from, std::size_t to)
{
    if (rect.empty())
        return;
    for (std::size_t i = from; i < to; ++i) {
        const PixelRect shared = intersection(rect, apart[i]);
        if (shared.empty())
            continue;
        const PixelRect above{rect.x, rect.y, rect.width, shared.y - rect.y};
        const PixelRect below{rect.x, shared.maxY(), rect.width, rect.maxY() - shared.maxY()};
        const PixelRect left{rect.x, shared.y, shared.x - rect.x, shared.height};
        const PixelRect right{shared.maxX(), shared.y, rect.maxX() - shared.maxX(), shared.height};
        for (const PixelRect& part : {above, left, right, below})
            addOutside(apart, part, i + 1, to);
        return;
    }
    apart.push_back(rect);
}

} // namespace

void setApart(std::vector<PixelRect>& apart, std::span<const PixelRect> rects, const PixelRect& bounds)
{
    apart.clear();
    for (const PixelRect& rect : rects)
        addOutside(apart, intersection(rect, bounds), 0, apart.size());
}

} // namespace haloric
