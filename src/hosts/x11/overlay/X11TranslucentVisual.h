// The visual of windows that can be seen through: 32 bits a pixel with alpha in the highest byte, in the byte order of
// this machine. Main thread.
#pragma once

#include "hosts/x11/server/X11Connection.h"

#include <optional>

namespace haloric {

class X11TranslucentVisual {
public:
    static constexpr std::uint8_t kDepth = 32;

    // Absent when the server has none.
    static std::optional<xcb_visualid_t> find(const X11Connection& connection);
};

} // namespace haloric
