// The dot of colour beside a preset in the menu.
#pragma once

#include "platform/Image.h"
#include "settings/RGBA.h"

namespace haloric {

// 14 by 14 points: a disc of the colour, with a thin edge in the system's separator colour.
DrawnImage swatch(const RGBA& color);

} // namespace haloric
