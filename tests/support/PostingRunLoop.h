// A main loop to which real threads post. It has no timers: what would run later never does.
#pragma once

#include "platform/RunLoop.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <utility>

namespace haloric {

class PostingRunLoop final : public RunLoop {
public:
    Seconds systemUptime() const override { return Seconds(0); }
    Seconds wallClock() const override { return Seconds(0); }
    void postAfter(Seconds, Task) override {}
    Subscription scheduleOnce(Seconds, Task) override { return {}; }
    Subscription scheduleRepeating(Seconds, Seconds, Task) override { return {}; }

    void post(Task task) override
    {
        const std::lock_guard lock(m_mutex);
        m_tasks.push_back(std::move(task));
        m_changed.notify_one();
    }

    // Runs what is posted, waiting for it where needed, until `done` says so.
    template <class Condition>
    void runUntil(Condition done)
    {
        while (!done())
            next()();
    }

private:
    Task next()
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [this] { return !m_tasks.empty(); });
        Task task = std::move(m_tasks.front());
        m_tasks.pop_front();
        return task;
    }

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<Task> m_tasks;
};

} // namespace haloric
