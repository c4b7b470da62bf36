// The pictures that the program's views draw, as scenes: each layer alone, together, at several scales and places.
#pragma once

#include "support/RasterScene.h"

#include <vector>

namespace haloric {

struct RasterScenes {
    static std::vector<RasterScene> highlight();
    static std::vector<RasterScene> dimming();
    static std::vector<RasterScene> all();

    // The same without a glow and in one colour at a time: what exact coverage alone decides.
    static std::vector<RasterScene> singleShapes();
};

} // namespace haloric
