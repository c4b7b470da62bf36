// The main run loop: timers in its common modes, posted work through the main dispatch queue.
#pragma once

#include "platform/RunLoop.h"

namespace haloric {

class MacRunLoop final : public RunLoop {
public:
    Seconds systemUptime() const override;
    Seconds wallClock() const override;
    void post(Task task) override;
    void postAfter(Seconds delay, Task task) override;
    Subscription scheduleOnce(Seconds delay, Task task) override;
    Subscription scheduleRepeating(Seconds interval, Seconds tolerance, Task task) override;
};

} // namespace haloric
