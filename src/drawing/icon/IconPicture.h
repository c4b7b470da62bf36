// The application's icon: a small window with the highlight around it, between the corners of a viewfinder, on a dark
// tile. Drawn on the program's own canvas, so it needs no picture files and no toolkit.
#pragma once

#include "drawing/raster/Picture.h"

namespace haloric {

class IconPicture {
public:
    // A square picture with a side of `pixels`, 1 or more, transparent around the tile. In small pictures edges lie on
    // whole pixels, lines are bolder, and details are omitted. Main thread.
    static Picture draw(int pixels);
};

} // namespace haloric
