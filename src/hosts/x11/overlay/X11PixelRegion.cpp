#include "hosts/x11/overlay/X11PixelRegion.h"

namespace haloric {

namespace {

// Adds what `rect` covers and `hole` does not: the rows above and below it, and what is left beside it.
void appendDifference(std::vector<PixelRect>& out, const PixelRect& rect, const PixelRect& hole)
{
    const PixelRect shared = intersection(rect, hole);
    if (shared.empty()) {
        out.push_back(rect);
        return;
    }
    const PixelRect parts[] = {
        {rect.x, rect.y, rect.width, shared.y - rect.y},
        {rect.x, shared.y, shared.x - rect.x, shared.height},
        {shared.maxX(), shared.y, rect.maxX() - shared.maxX(), shared.height},
        {rect.x, shared.maxY(), rect.width, rect.maxY() - shared.maxY()},
    };
    for (const auto& part : parts) {
        if (!part.empty())
            out.push_back(part);
    }
}

std::vector<PixelRect> difference(std::span<const PixelRect> rects, const PixelRect& hole)
{
    std::vector<PixelRect> left;
    for (const auto& rect : rects)
        appendDifference(left, rect, hole);
    return left;
}

} // namespace

X11PixelRegion::X11PixelRegion(std::span<const PixelRect> rects)
{
    for (const auto& rect : rects)
        add(rect);
}

void X11PixelRegion::add(const PixelRect& rect)
{
    if (rect.empty())
        return;
    std::vector<PixelRect> fresh{rect};
    for (const auto& known : m_rects)
        fresh = difference(fresh, known);
    m_rects.insert(m_rects.end(), fresh.begin(), fresh.end());
}

void X11PixelRegion::add(const X11PixelRegion& region)
{
    for (const auto& rect : region.m_rects)
        add(rect);
}

void X11PixelRegion::subtract(const PixelRect& rect)
{
    if (!rect.empty())
        m_rects = difference(m_rects, rect);
}

X11PixelRegion X11PixelRegion::minus(const X11PixelRegion& other) const
{
    X11PixelRegion result = *this;
    for (const auto& rect : other.m_rects)
        result.subtract(rect);
    return result;
}

X11PixelRegion X11PixelRegion::intersectedWith(const X11PixelRegion& other) const
{
    X11PixelRegion result;
    for (const auto& mine : m_rects) {
        for (const auto& theirs : other.m_rects) {
            const PixelRect shared = intersection(mine, theirs);
            if (!shared.empty())
                result.m_rects.push_back(shared); // both regions are disjoint in themselves
        }
    }
    return result;
}

bool X11PixelRegion::contains(const PixelRect& rect) const { return X11PixelRegion(rect).minus(*this).empty(); }

std::vector<PixelRect> X11PixelRegion::bands(int maximumPixels) const
{
    std::vector<PixelRect> result;
    for (const auto& rect : m_rects) {
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
