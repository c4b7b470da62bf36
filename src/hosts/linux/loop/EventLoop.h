// What keeps the program running: turns until it is told to stop. Main thread.
#pragma once

namespace haloric {

class EventLoop {
public:
    virtual ~EventLoop() = default;

    // Returns after `stop`; also every loop that was started from within, such as that of an alert, ends then.
    virtual void run() = 0;
    virtual void stop() = 0;
};

} // namespace haloric
