// Deadlines in order, and when to wake up for them. Knows no clock: the caller says what time it is. Main thread.
#pragma once

#include "foundation/Subscription.h"
#include "foundation/Task.h"

#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <utility>

namespace haloric {

class TimerQueue {
public:
    using Instant = std::chrono::steady_clock::time_point;
    using Duration = std::chrono::steady_clock::duration;

    // An interval of zero: fires once. The queue outlives the handle.
    Subscription add(Instant deadline, Duration interval, Duration tolerance, Task task);

    // Fires once and cannot be cancelled.
    void post(Instant deadline, Task task);

    // Runs what is due at `now`, in the order of deadlines; equal ones in the order in which they were added. What
    // those tasks add waits for the next call.
    void runDue(Instant now);

    // The latest deadline that makes no timer later than its tolerance allows, so that timers share a wake-up.
    std::optional<Instant> nextWake() const;

private:
    struct Timer;
    using Key = std::pair<Instant, std::uint64_t>;

    std::shared_ptr<Timer> insert(Instant deadline, Duration interval, Duration tolerance, Task task);

    std::uint64_t m_sequence = 0;
    std::map<Key, std::shared_ptr<Timer>> m_timers;
};

} // namespace haloric
