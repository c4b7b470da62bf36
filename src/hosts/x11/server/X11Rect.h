// A rectangle of the root window: whole pixels, origin at the root's top left, y downward.
#pragma once

#include "drawing/PixelRect.h"

namespace haloric {

using X11Rect = PixelRect;

} // namespace haloric
