// The colours of a glow, and the pixel that they make. Pure.
#pragma once

#include "foundation/Color.h"

#include <cstdint>

namespace haloric {

struct GlowColors {
    Color shadow;
    Color fill; // of the rectangle; visible only through the smoothed edge of the clip

    // The pixel where the rectangle covers `coverage` of it and its blurred copy `blurred`: the shadow and over it the
    // rectangle itself, both clipped to the outside. Rounded once.
    std::uint32_t pixel(float blurred, float coverage) const;

    friend bool operator==(const GlowColors&, const GlowColors&) = default;
};

} // namespace haloric
