#include "hosts/x11/overlay/X11OverlaySurface.h"

#include <algorithm>
#include <cmath>

namespace haloric {

namespace {

// Rounding errors of earlier sums must not add a pixel.
constexpr double kNoise = 1e-6;

int cut(double pixel, int limit)
{
    return std::isnan(pixel) ? 0 : static_cast<int>(std::clamp(pixel, 0.0, static_cast<double>(limit)));
}

} // namespace

PixelRect X11ViewContent::toPixels(const Rect& rect) const
{
    const int left = cut(std::floor(rect.minX() * scale + offset.x + kNoise), pixels.width);
    const int right = cut(std::ceil(rect.maxX() * scale + offset.x - kNoise), pixels.width);
    const int top = cut(std::floor((size.height - rect.maxY()) * scale + offset.y + kNoise), pixels.height);
    const int bottom = cut(std::ceil((size.height - rect.minY()) * scale + offset.y - kNoise), pixels.height);
    return {left, top, right - left, bottom - top};
}

} // namespace haloric
