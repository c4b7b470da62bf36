// Ticks that follow the refresh of a screen. Main thread.
#pragma once

#include "foundation/Task.h"
#include "platform/Screens.h"

#include <memory>

namespace haloric {

struct FrameRateRange {
    double minimum = 0; // frames per second, as are the others
    double maximum = 0;
    double preferred = 0;
    friend bool operator==(const FrameRateRange&, const FrameRateRange&) = default;
};

// Ticks on the main thread once it is on the main run loop, until it is invalidated or destroyed.
class ScreenDisplayLink {
public:
    virtual ~ScreenDisplayLink() = default;
    virtual void setPreferredFrameRateRange(const FrameRateRange& range) = 0;
    virtual void addToMainRunLoop() = 0;
    virtual void invalidate() = 0;
};

class DisplayLinks {
public:
    virtual ~DisplayLinks() = default;

    // Null if the screen is gone, or on a system that makes links only from display numbers (see VideoLinks).
    virtual std::unique_ptr<ScreenDisplayLink> makeScreenLink(const Screen& screen, Task tick) = 0;
};

} // namespace haloric
