// An item's image as a tray shows it. Main thread.
#pragma once

#include "drawing/raster/Picture.h"
#include "foundation/Color.h"
#include "platform/Image.h"

#include <optional>

namespace haloric {

struct TrayPicture {
    // A square with a side of `side` pixels, 1 or more, premultiplied. A template image takes the colour of the tray's
    // text; where that is unknown it is dark with a light rim, which is visible on dark and on light panels.
    static Picture draw(const DrawnImage& image, int side, const std::optional<Color>& textColor);
};

} // namespace haloric
