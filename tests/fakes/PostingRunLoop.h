// A main loop to which real threads post. It has no timers: what would run later never does.
#pragma once

#include "platform/RunLoop.h"

#include <condition_variable>
#include <cstddef>
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

    // Runs posted tasks, and waits for them if needed, until `done` returns true.
    template <class Condition>
    void runUntil(Condition done)
    {
        while (!done())
            waitAndRunOne();
    }

    void waitAndRunOne()
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [this] { return !m_tasks.empty(); });
        const Task task = takeFirst();
        lock.unlock();
        task();
    }

    // Runs what has been posted, and what that posts; how many there were.
    std::size_t runAll()
    {
        std::size_t count = 0;
        for (Task task = takeNext(); task; task = takeNext()) {
            task();
            ++count;
        }
        return count;
    }

private:
    Task takeNext()
    {
        const std::lock_guard lock(m_mutex);
        return m_tasks.empty() ? Task() : takeFirst();
    }

    Task takeFirst()
    {
        Task task = std::move(m_tasks.front());
        m_tasks.pop_front();
        return task;
    }

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<Task> m_tasks;
};

} // namespace haloric
