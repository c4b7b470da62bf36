#include "drawing/raster/GlowColors.h"

#include "drawing/raster/Blend.h"

#include <algorithm>

namespace haloric {

std::uint32_t GlowColors::pixel(float blurred, float coverage) const
{
    const double open = 1 - static_cast<double>(coverage);
    if (open <= 0)
        return 0;
    const double opacity = std::clamp(fill.alpha, 0.0, 1.0);
    const double filled = opacity * static_cast<double>(coverage) * open;
    const double shaded =
        std::clamp(shadow.alpha, 0.0, 1.0) * opacity * static_cast<double>(blurred) * open * (1 - filled);
    const double alpha = filled + shaded;
    if (!(alpha > 0))
        return 0;
    const double fillPart = filled / alpha;
    const auto mixed = [&](double fillComponent, double shadowComponent) {
        return fillPart * fillComponent + (1 - fillPart) * shadowComponent;
    };
    return premultiplied(
        {mixed(fill.red, shadow.red), mixed(fill.green, shadow.green), mixed(fill.blue, shadow.blue), alpha}, 1);
}

} // namespace haloric
