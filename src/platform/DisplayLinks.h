// Ticks that follow a display's refresh, in the two generations that the platform offers. Made and controlled on
// the main thread.
#pragma once

#include "foundation/Ids.h"
#include "foundation/Task.h"
#include "platform/Screens.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace haloric {

struct FrameRateRange {
    double minimum = 0; // all in frames a second
    double maximum = 0;
    double preferred = 0;
    friend bool operator==(const FrameRateRange&, const FrameRateRange&) = default;
};

// A link made by a screen (system version 14 and later). It ticks on the main thread once it is on the main run
// loop, until it is invalidated; destroying it without that also ends it.
class ScreenDisplayLink {
public:
    virtual ~ScreenDisplayLink() = default;
    virtual void setPreferredFrameRateRange(const FrameRateRange& range) = 0;
    virtual void addToMainRunLoop() = 0;
    virtual void invalidate() = 0;
};

// A link made for a display number (system version 13). Its output handler runs on the link's own thread.
class VideoDisplayLink {
public:
    using OutputHandler = std::function<std::int32_t()>; // returns 0 for success

    virtual ~VideoDisplayLink() = default;
    virtual bool setOutputHandler(OutputHandler handler) = 0; // false: refused
    virtual bool start() = 0;                                 // false: could not start
    virtual void stop() = 0; // when it returns, the handler is not running and is not called again
};

// Carries counts from any thread to one handler on the main thread; counts that arrive while the main thread is
// busy are added up into one call.
class DataAddSource {
public:
    virtual ~DataAddSource() = default;
    virtual void resume() = 0;
    virtual void add(std::uint64_t count) = 0; // any thread, never blocks
    virtual void cancel() = 0;                 // the handler is not called after this
};

class DisplayLinks {
public:
    virtual ~DisplayLinks() = default;

    // Whether the system is version 14.0.0 or later, which makes links from screens.
    virtual bool screenLinksAvailable() const = 0;

    // Null when the screen is gone.
    virtual std::unique_ptr<ScreenDisplayLink> makeScreenLink(const Screen& screen, Task tick) = 0;

    // Null when the display number is unknown.
    virtual std::unique_ptr<VideoDisplayLink> makeVideoLink(DisplayID display) = 0;

    // The handler runs on the main thread. Shared, because the link's thread keeps it while it adds. Never null.
    virtual std::shared_ptr<DataAddSource> makeDataAddSource(Task handler) = 0;
};

} // namespace haloric
