// A set of pixels as rectangles that share none. For the few rectangles of a redraw: there is no index, and the effort
// grows with the square of their number. Pure.
#pragma once

#include "drawing/PixelRect.h"

#include <cstddef>
#include <span>
#include <vector>

namespace haloric {

class PixelRegion {
public:
    PixelRegion() = default;
    explicit PixelRegion(const PixelRect& rect) { add(rect); }
    explicit PixelRegion(std::span<const PixelRect> rects);

    std::span<const PixelRect> rects() const { return m_rects; }
    bool empty() const { return m_rects.empty(); }

    // A cleared region keeps its memory, and adding to it allocates only beyond that.
    void clear() { m_rects.clear(); }
    void add(const PixelRect& rect);
    void limitTo(const PixelRect& bounds);

    PixelRegion minus(const PixelRegion& other) const;
    PixelRegion intersectedWith(const PixelRegion& other) const;
    bool contains(const PixelRect& rect) const;

    // The region in bands of whole rows of at most `maximumPixels` each, from top to bottom within each rectangle. A
    // longer row is cut as well.
    std::vector<PixelRect> bands(int maximumPixels) const;

private:
    void addOutside(const PixelRect& rect, std::size_t from, std::size_t to);

    std::vector<PixelRect> m_rects;
};

} // namespace haloric
