// A rectangle of the root window: whole pixels, origin at the root's top left, y downward.
#pragma once

namespace haloric {

struct X11Rect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    friend bool operator==(const X11Rect&, const X11Rect&) = default;
};

} // namespace haloric
