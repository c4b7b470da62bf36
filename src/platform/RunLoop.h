// The main thread's event loop and the clocks. One exists; timers and posted work run on the main thread, in its
// common modes, one at a time and never inside the call that scheduled them.
#pragma once

#include "foundation/Subscription.h"
#include "foundation/Task.h"
#include "foundation/Time.h"

namespace haloric {

class RunLoop {
public:
    virtual ~RunLoop() = default;

    // Time since the system started, monotonic. Any thread.
    virtual Seconds systemUptime() const = 0;

    // The calendar clock, since 1970 in UTC. It may jump. Any thread.
    virtual Seconds wallClock() const = 0;

    // Runs `task` on a later turn of the main loop. Tasks posted from one thread run in their order. Any thread;
    // does not block.
    virtual void post(Task task) = 0;

    // Runs `task` once on the main thread, not before `delay` has passed. Cannot be cancelled: the task holds its
    // owner weakly. Equal deadlines run in the order of their requests. Any thread; does not block.
    virtual void postAfter(Seconds delay, Task task) = 0;

    // A one-shot timer, cancelled by the handle. Main thread.
    virtual Subscription scheduleOnce(Seconds delay, Task task) = 0;

    // A repeating timer, cancelled by the handle. Each firing may be late by up to `tolerance`, so that the system
    // can join wake-ups; missed firings are skipped. Main thread.
    virtual Subscription scheduleRepeating(Seconds interval, Seconds tolerance, Task task) = 0;
};

} // namespace haloric
