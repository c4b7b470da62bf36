// Renders the program's drawn images, for hosts that need them as pixels. Main thread.
#pragma once

#include "drawing/raster/Picture.h"
#include "platform/Image.h"

namespace haloric {

struct ImageRaster {
    // The whole picture, its top row first, premultiplied. `scale`: pixels per point. An image without a size gives no
    // pixels, one without a drawing function transparent ones.
    static Picture render(const DrawnImage& image, double scale, const SystemColors& colors);
};

} // namespace haloric
