// Which screen holds most of a rectangle.
#pragma once

#include "platform/Screens.h"

#include <span>

namespace haloric {

// The screen whose frame shares the largest area with `rect`; a later screen wins only by a strictly larger area,
// so ties, and a rectangle that no screen holds, choose the first. Null without screens.
inline const Screen* screenHoldingMost(const Rect& rect, std::span<const Screen> screens)
{
    const Screen* candidate = nullptr;
    double largest = 0;
    for (const Screen& screen : screens) {
        const double area = intersectionArea(screen.frame, rect);
        if (!candidate || area > largest) {
            candidate = &screen;
            largest = area;
        }
    }
    return candidate;
}

} // namespace haloric
