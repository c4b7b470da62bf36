// What the program's views draw, as scenes: each layer by itself, all together, at several scales and places.
#pragma once

#include "support/RasterScene.h"

#include <vector>

namespace haloric {

struct RasterScenes {
    static std::vector<RasterScene> highlight();
    static std::vector<RasterScene> dimming();
    static std::vector<RasterScene> all();

    // Some of these at scales without a golden picture.
    static std::vector<RasterScene> otherScales();

    // The same without a glow and in one colour at a time, drawn only by exact coverage.
    static std::vector<RasterScene> singleShapes();
};

} // namespace haloric
