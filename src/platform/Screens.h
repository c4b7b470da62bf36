// The attached screens. Main thread.
#pragma once

#include "foundation/Geometry.h"
#include "foundation/Ids.h"
#include "foundation/Subscription.h"
#include "foundation/Task.h"

#include <optional>
#include <span>

namespace haloric {

struct Screen {
    Rect frame;                         // screen space, points
    std::optional<DisplayID> displayID; // no value if the system reports none
    double maximumFramesPerSecond = 60;
    double backingScale = 1; // pixels per point
    friend bool operator==(const Screen&, const Screen&) = default;
};

class Screens {
public:
    virtual ~Screens() = default;

    // In the system's order; the first is the primary screen. May be empty. Neither allocates nor asks the system.
    // Valid until the next turn of the main loop.
    virtual std::span<const Screen> all() const = 0;

    // After screens were added, removed, moved or resized. `all()` returns the new ones by then.
    virtual Subscription onParametersChange(Task handler) = 0;
};

} // namespace haloric
