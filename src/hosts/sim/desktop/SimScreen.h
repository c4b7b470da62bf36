// A screen of the simulated desktop.
#pragma once

#include "foundation/Geometry.h"
#include "foundation/Ids.h"

namespace haloric {

struct SimScreen {
    DisplayID id = DisplayID::none; // none: adapters report no number
    Rect frame;                     // global space: the primary screen's top left corner is the origin, y downward
    double framesPerSecond = 60;
    double scale = 1;
    friend bool operator==(const SimScreen&, const SimScreen&) = default;
};

} // namespace haloric
