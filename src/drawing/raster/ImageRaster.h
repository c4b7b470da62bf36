// Turns pictures that the program draws into pixels, for hosts that show pictures as pixels. Main thread.
#pragma once

#include "drawing/raster/Picture.h"
#include "platform/Image.h"

namespace haloric {

struct ImageRaster {
    // The whole picture, its top row first, premultiplied. `scale`: pixels a point. A picture of no size, and one that
    // nobody draws, gives no pixels, or transparent ones.
    static Picture render(const DrawnImage& image, double scale, const SystemColors& colors);
};

} // namespace haloric
