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
    std::optional<DisplayID> displayID; // absent when the system does not tell
    double maximumFramesPerSecond = 60;
    double backingScale = 1; // pixels a point
    friend bool operator==(const Screen&, const Screen&) = default;
};

class Screens {
public:
    virtual ~Screens() = default;

    // In the system's order; the first is the primary screen. May be empty. Costs no allocation and no round trip;
    // valid until the main loop turns.
    virtual std::span<const Screen> all() const = 0;

    // After screens came, went, moved or changed size; `all()` tells the new ones by then.
    virtual Subscription onParametersChange(Task handler) = 0;
};

} // namespace haloric
