// A rectangle of the root window: whole pixels, origin at the root's top left, y downward.
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

namespace haloric {

struct X11Rect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    // What the protocol can say of a window: far more than any screen. Larger numbers would wrap on the wire.
    X11Rect withinProtocol() const
    {
        using Limits = std::numeric_limits<std::int16_t>;
        return {std::clamp<int>(x, Limits::min(), Limits::max()), std::clamp<int>(y, Limits::min(), Limits::max()),
                std::clamp<int>(width, 1, Limits::max()), std::clamp<int>(height, 1, Limits::max())};
    }

    friend bool operator==(const X11Rect&, const X11Rect&) = default;
};

} // namespace haloric
