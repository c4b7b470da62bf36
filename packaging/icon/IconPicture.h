// The application's icon: a small window with the highlight around it, between the corners of a viewfinder, on a dark
// tile. Drawn through the interface that the program itself draws with, so it needs no picture files and no toolkit.
#pragma once

#include "drawing/raster/Picture.h"

namespace haloric {

class IconPicture {
public:
    // A square picture of that many pixels, 1 or more, transparent around the tile. In small pictures edges lie on
    // whole pixels, lines are bolder, and details that nobody would make out are left out. Main thread.
    static Picture draw(int pixels);
};

} // namespace haloric
