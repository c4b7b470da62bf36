// The choice of a screen for a rectangle.
#pragma once

#include "foundation/Geometry.h"

#include <ranges>

namespace haloric {

// The screen whose `frame` shares the largest area with `rect`, in the same coordinate space. The first of several with
// the same area, and the first screen if none shares any. Null without screens.
template <std::ranges::forward_range ScreenRange>
const std::ranges::range_value_t<ScreenRange>* screenHoldingMost(const Rect& rect, const ScreenRange& screens)
{
    const std::ranges::range_value_t<ScreenRange>* candidate = nullptr;
    double largest = 0;
    for (const auto& screen : screens) {
        const double area = intersectionArea(screen.frame, rect);
        if (!candidate || area > largest) {
            candidate = &screen;
            largest = area;
        }
    }
    return candidate;
}

} // namespace haloric
