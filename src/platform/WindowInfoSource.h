// The public on-screen window list: one record per window, whose values may be missing or of an unexpected type.
// Main thread; one round trip to the window server.
#pragma once

#include "foundation/Geometry.h"
#include "foundation/Ids.h"

#include <cstdint>
#include <optional>
#include <variant>
#include <vector>

namespace haloric {

// A value that is neither a number nor a dictionary that makes a rectangle.
struct OtherWindowInfoValue {
    friend bool operator==(const OtherWindowInfoValue&, const OtherWindowInfoValue&) = default;
};

// std::monostate: the key is missing. An integer and a floating-point number are different types. A rectangle is a
// bounds dictionary that converts to one, in global space (origin top left of the primary display, y downward).
using WindowInfoValue = std::variant<std::monostate, OtherWindowInfoValue, std::int64_t, double, Rect>;

// Named after the keys of macOS.
struct WindowInfo {
    WindowInfoValue layer;
    WindowInfoValue ownerPID;
    WindowInfoValue alpha;
    WindowInfoValue number;
    WindowInfoValue bounds;
};

// The option bits of macOS.
enum class WindowListOptions : std::uint32_t {
    onScreenOnly = 1,
    includingWindow = 8,
    excludeDesktopElements = 16,
};

constexpr WindowListOptions operator|(WindowListOptions a, WindowListOptions b)
{
    return static_cast<WindowListOptions>(static_cast<std::uint32_t>(a) | static_cast<std::uint32_t>(b));
}

class WindowInfoSource {
public:
    virtual ~WindowInfoSource() = default;

    // Front to back. Absent when the list is missing or is not a list of records with text keys.
    virtual std::optional<std::vector<WindowInfo>> copyWindowInfo(WindowListOptions options,
                                                                  WindowNumber relativeTo) = 0;
};

} // namespace haloric
