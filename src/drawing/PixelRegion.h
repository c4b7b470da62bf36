// Sets of pixels as rectangles. Pure.
#pragma once

#include "drawing/PixelRect.h"

#include <span>
#include <vector>

namespace haloric {

// Replaces `apart` by rectangles that share no pixel and cover what `rects` cover within `bounds`. For the few
// rectangles of a redraw: the effort grows with the square of their number.
void setApart(std::vector<PixelRect>& apart, std::span<const PixelRect> rects, const PixelRect& bounds);

} // namespace haloric
