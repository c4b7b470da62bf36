// The loop that keeps the program running until it is stopped. Main thread.
#pragma once

namespace haloric {

class EventLoop {
public:
    virtual ~EventLoop() = default;

    // Returns after `stop`, which also ends every loop that was started from within, such as that of an alert.
    virtual void run() = 0;
    virtual void stop() = 0;
};

} // namespace haloric
