// Blurs a mask pixel by pixel: the exact separable Gaussian, for shadows of shapes that have no patch. Slow. Main
// thread.
#pragma once

#include "drawing/GlowKernel.h"
#include "drawing/raster/PathMask.h"

#include <vector>

namespace haloric {

class MaskBlur {
public:
    // Blurs into `area`. The mask must exceed it by the kernel's margin on every side.
    void blur(const PathMask& mask, const PixelRect& area, const GlowKernel& kernel);

    // `y` in the space of the area, the first value being the area's leftmost; 0...1.
    const float* row(int y) const { return m_blurred.data() + static_cast<std::size_t>(y - m_area.y) * width(); }

private:
    std::size_t width() const { return static_cast<std::size_t>(m_area.width); }
    void addScaled(float* sum, const float* values, float share) const;

    PixelRect m_area;
    std::vector<float> m_across; // blurred along the rows, with the margin above and below
    std::vector<float> m_blurred;
};

} // namespace haloric
