#include "drawing/PixelRegion.h"

#include <algorithm>
#include <array>

namespace haloric {

namespace {

// What `rect` covers outside `hole`, a part of it: the rows above, the parts to the left and right, the rows below. Any
// of them may be empty.
std::array<PixelRect, 4> around(const PixelRect& hole, const PixelRect& rect)
{
    return {PixelRect{rect.x, rect.y, rect.width, hole.y - rect.y},
            PixelRect{rect.x, hole.y, hole.x - rect.x, hole.height},
            PixelRect{hole.maxX(), hole.y, rect.maxX() - hole.maxX(), hole.height},
            PixelRect{rect.x, hole.maxY(), rect.width, rect.maxY() - hole.maxY()}};
}

std::vector<PixelRect> difference(std::span<const PixelRect> rects, const PixelRect& hole)
{
    std::vector<PixelRect> result;
    for (const PixelRect& rect : rects) {
        const PixelRect shared = intersection(rect, hole);
        if (shared.empty())
            result.push_back(rect);
        else
            std::ranges::copy_if(around(shared, rect), std::back_inserter(result),
                                 [](const PixelRect& part) { return !part.empty(); });
    }
    return result;
}

} // namespace

PixelRegion::PixelRegion(std::span<const PixelRect> rects)
{
    for (const PixelRect& rect : rects)
        add(rect);
}

void PixelRegion::add(const PixelRect& rect) { addOutside(rect, 0, m_rects.size()); }

// Adds what `rect` covers outside the rectangles from index `from` to `to`.
void PixelRegion::addOutside(const PixelRect& rect, std::size_t from, std::size_t to)
{
    if (rect.empty())
        return;
    for (std::size_t i = from; i < to; ++i) {
        const PixelRect shared = intersection(rect, m_rects[i]);
        if (shared.empty())
            continue;
        for (const PixelRect& part : around(shared, rect))
            addOutside(part, i + 1, to);
        return;
    }
    m_rects.push_back(rect);
}

void PixelRegion::limitTo(const PixelRect& bounds)
{
    for (PixelRect& rect : m_rects)
        rect = intersection(rect, bounds);
    std::erase_if(m_rects, [](const PixelRect& rect) { return rect.empty(); });
}

PixelRegion PixelRegion::minus(const PixelRegion& other) const
{
    PixelRegion result = *this;
    for (const PixelRect& hole : other.m_rects)
        result.m_rects = difference(result.m_rects, hole);
    return result;
}

PixelRegion PixelRegion::intersectedWith(const PixelRegion& other) const
{
    PixelRegion result;
    for (const PixelRect& mine : m_rects) {
        for (const PixelRect& theirs : other.m_rects) {
            const PixelRect shared = intersection(mine, theirs);
            if (!shared.empty())
                result.m_rects.push_back(shared); // shares no pixel with the others, as both regions' rectangles do not
        }
    }
    return result;
}

bool PixelRegion::contains(const PixelRect& rect) const { return PixelRegion(rect).minus(*this).empty(); }

std::vector<PixelRect> PixelRegion::bands(int maximumPixels) const
{
    std::vector<PixelRect> result;
    for (const PixelRect& rect : m_rects) {
        const int width = std::min(rect.width, maximumPixels);
        const int rows = std::max(1, maximumPixels / width);
        for (int y = rect.y; y < rect.maxY(); y += rows) {
            for (int x = rect.x; x < rect.maxX(); x += width)
                result.push_back({x, y, std::min(width, rect.maxX() - x), std::min(rows, rect.maxY() - y)});
        }
    }
    return result;
}

} // namespace haloric
