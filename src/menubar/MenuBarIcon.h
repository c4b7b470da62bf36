// The program's icon in the menu bar: a small window in the corner brackets of a viewfinder.
#pragma once

#include "platform/Image.h"

namespace haloric {

struct MenuBarIcon {
    // 18 by 18 points, flipped; a template, so that the menu bar colours it.
    static DrawnImage make();
};

} // namespace haloric
