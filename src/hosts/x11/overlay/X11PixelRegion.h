// A set of pixels as rectangles that do not overlap. Small regions only: a handful of rectangles, no index.
#pragma once

#include "drawing/PixelRect.h"

#include <span>
#include <vector>

namespace haloric {

class X11PixelRegion {
public:
    X11PixelRegion() = default;
    explicit X11PixelRegion(std::span<const PixelRect> rects);
    explicit X11PixelRegion(const PixelRect& rect) { add(rect); }

    std::span<const PixelRect> rects() const { return m_rects; }
    bool empty() const { return m_rects.empty(); }
    void clear() { m_rects.clear(); }

    void add(const PixelRect& rect);
    void add(const X11PixelRegion& region);
    void subtract(const PixelRect& rect);

    X11PixelRegion minus(const X11PixelRegion& other) const;
    X11PixelRegion intersectedWith(const X11PixelRegion& other) const;
    bool contains(const PixelRect& rect) const;

    // The rectangles, cut into bands of whole rows so that none has more than `maximumPixels`; a row that is longer
    // is cut as well. From top to bottom within each rectangle.
    std::vector<PixelRect> bands(int maximumPixels) const;

private:
    std::vector<PixelRect> m_rects;
};

} // namespace haloric
