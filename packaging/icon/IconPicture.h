// The application's icon: a window with the highlight around it, on a dark tile. Drawn by what the program itself draws
// with, on the grid that icons have on macOS.
#pragma once

#include "drawing/raster/Picture.h"

namespace haloric {

class IconPicture {
public:
    // A square picture of that many pixels. Details too small to be seen at its size are left out or made bolder.
    static Picture draw(int pixels);
};

} // namespace haloric
