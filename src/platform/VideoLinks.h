// The older way to follow a display's refresh, for systems that make no links from screens (macOS 13): a link made from
// a display number, which calls on its own thread, and a source that carries the frames to the main thread. Made and
// controlled on the main thread.
#pragma once

#include "foundation/Ids.h"
#include "foundation/Task.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace haloric {

class VideoDisplayLink {
public:
    using OutputHandler = std::function<std::int32_t()>; // the link's thread; returns 0 for success

    virtual ~VideoDisplayLink() = default;
    virtual bool setOutputHandler(OutputHandler handler) = 0; // false: refused
    virtual bool start() = 0;                                 // false: could not start
    virtual void stop() = 0; // when it returns, the handler is not running and is not called again
};

// Carries counts from any thread to one handler on the main thread; counts that arrive while the main thread is busy
// are added up into one call.
class DataAddSource {
public:
    virtual ~DataAddSource() = default;
    virtual void resume() = 0;
    virtual void add(std::uint64_t count) = 0; // any thread, never blocks
    virtual void cancel() = 0;                 // the handler is not called after this
};

class VideoLinks {
public:
    virtual ~VideoLinks() = default;

    // Null if the display number is unknown.
    virtual std::unique_ptr<VideoDisplayLink> makeVideoLink(DisplayID display) = 0;

    // The handler runs on the main thread. Shared, because the link's thread keeps it while it adds. Never null.
    virtual std::shared_ptr<DataAddSource> makeDataAddSource(Task handler) = 0;
};

} // namespace haloric
