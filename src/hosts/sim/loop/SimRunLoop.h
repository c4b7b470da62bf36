// The main loop of the simulated desktop, and its virtual time, which passes only in `runFor`, `runNext` and
// `runPosted`. The thread that made it is its main thread; only `post` and `postAfter` may be called on others. Blocks
// of background queues run on the main thread (SimSerialQueues).
#pragma once

#include "platform/RunLoop.h"

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <thread>
#include <utility>
#include <vector>

namespace haloric {

class SimRunLoop final : public RunLoop {
public:
    using Nanoseconds = std::chrono::nanoseconds;

    // RunLoop
    Seconds systemUptime() const override;
    Seconds wallClock() const override;
    void post(Task task) override;
    void postAfter(Seconds delay, Task task) override;
    Subscription scheduleOnce(Seconds delay, Task task) override;
    Subscription scheduleRepeating(Seconds interval, Seconds tolerance, Task task) override;

    // Runs everything that is due now, including what that work posts for now.
    void runPosted() { runFor(Seconds(0)); }

    // Advances virtual time and runs everything that becomes due, in the order of deadlines; equal deadlines in the
    // order in which they were scheduled.
    void runFor(Seconds duration);

    // Runs the one event that is due next, and moves time to it. False when nothing is scheduled.
    bool runNext();

    // Drops every event, before what the events refer to is destroyed.
    void discardPending();

    // When the next event is due; absent when nothing is scheduled.
    std::optional<Nanoseconds> nextDue() const;

    // For hosts: runs `task` at an absolute instant, not before now.
    void postAt(Nanoseconds instant, Task task);

    // For background work that takes virtual time: moves the clock for the rest of the current event only, so that
    // what it posts arrives that much later while the main loop goes on meanwhile.
    void spend(Seconds duration);

    Nanoseconds now() const { return m_now + m_spent; }

    // Timers (once and repeating) that are still armed, to find leaks.
    std::size_t armedTimerCount() const { return m_armedTolerances.size(); }
    // The tolerances of the armed timers, smallest first; zero for one that fires once. Virtual time ignores them.
    const std::multiset<Seconds>& armedTolerances() const { return m_armedTolerances; }

    std::size_t pendingEventCount() const { return m_events.size(); }

    // What RunLoop::wallClock returns at virtual time zero; may be moved in both directions.
    void setWallClockOrigin(Seconds origin) { m_wallClockOrigin = origin; }

private:
    struct Timer;
    using Key = std::pair<Nanoseconds, std::uint64_t>;

    Key insert(Nanoseconds instant, Task task);
    Subscription arm(Seconds delay, Seconds interval, Seconds tolerance, Task task);
    void disarm(Timer& timer);
    void fire(const std::shared_ptr<Timer>& timer);
    void takeInPosts();
    void runFirst();

    Nanoseconds m_now{0};
    Nanoseconds m_spent{0};
    Seconds m_wallClockOrigin{1'700'000'000};
    std::uint64_t m_sequence = 0;
    std::map<Key, Task> m_events;
    std::multiset<Seconds> m_armedTolerances; // one a timer

    const std::thread::id m_mainThread = std::this_thread::get_id();
    std::atomic<bool> m_hasPosts = false;              // of other threads
    std::mutex m_lock;                                 // guards the next one
    std::vector<std::pair<Nanoseconds, Task>> m_posts; // delays, from the time at which the loop takes them in
};

} // namespace haloric
