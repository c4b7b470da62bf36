// The time of the substitute, and the one place where its main loop waits. A
// test may put a clock of its own in place of the machine's, so that time
// passes only when nothing else is left to do.
#pragma once

namespace substitute {

class Clock {
public:
    virtual ~Clock() = default;

    // Seconds since some start; they never fall. Any thread.
    virtual double now() const = 0;
    virtual double secondsSince1970() const = 0; // any thread

    // The main loop has nothing to do before `instant` (of `now()`; infinite:
    // nothing at all). Returns at that instant, or earlier if `wake` was called
    // since the last return. Main thread.
    virtual void waitUntil(double instant) = 0;
    virtual void wake() = 0; // any thread

    // Whether dispatch queues and video links have threads. If not, their work is
    // done on the main thread, as further work of the main loop, in the order in
    // which it was submitted.
    virtual bool hasThreads() const = 0;
};

Clock& clock();

// Null: the machine's again. Nothing is pending on the main loop, and the clock
// outlives its use. Main thread.
void setClock(Clock* clock);

inline double now() { return clock().now(); }

} // namespace substitute
