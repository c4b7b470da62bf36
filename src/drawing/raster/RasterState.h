// The state that RasterCanvas saves and restores.
#pragma once

#include "drawing/Canvas.h"

#include <cstddef>
#include <optional>

namespace haloric {

// A clip as a range of the list of clip shapes.
struct RasterClip {
    std::size_t firstShape = 0;
    std::size_t shapes = 0;
    FillRule rule = FillRule::nonZero;
};

struct RasterState {
    std::size_t clips = 0; // the number of current ones
    std::optional<Shadow> shadow;
    BlendMode blendMode = BlendMode::normal;
};

} // namespace haloric
