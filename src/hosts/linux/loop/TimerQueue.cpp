#include "hosts/linux/loop/TimerQueue.h"

#include <algorithm>

namespace haloric {

struct TimerQueue::Timer {
    Task task;
    Duration interval{};
    Duration tolerance{};
    Key key;
    bool armed = true;
};

std::shared_ptr<TimerQueue::Timer> TimerQueue::insert(Instant deadline, Duration interval, Duration tolerance,
                                                      Task task)
{
    auto timer = std::make_shared<Timer>();
    timer->task = std::move(task);
    timer->interval = interval;
    timer->tolerance = tolerance;
    timer->key = {deadline, m_sequence++};
    m_timers.emplace(timer->key, timer);
    return timer;
}

Subscription TimerQueue::add(Instant deadline, Duration interval, Duration tolerance, Task task)
{
    return Subscription([this, timer = insert(deadline, interval, tolerance, std::move(task))] {
        if (std::exchange(timer->armed, false))
            m_timers.erase(timer->key);
    });
}

void TimerQueue::post(Instant deadline, Task task) { insert(deadline, {}, {}, std::move(task)); }

void TimerQueue::runDue(Instant now)
{
    const std::uint64_t firstNew = m_sequence;
    while (!m_timers.empty()) {
        const auto first = m_timers.begin();
        if (first->first.first > now || first->first.second >= firstNew)
            return;
        const auto timer = first->second;
        m_timers.erase(first);
        if (timer->interval > Duration(0)) {
            // Stay on the beat, and leave out the beats that were missed.
            const auto missed = (now - timer->key.first) / timer->interval;
            timer->key = {timer->key.first + (missed + 1) * timer->interval, m_sequence++};
            m_timers.emplace(timer->key, timer);
        } else {
            timer->armed = false;
        }
        timer->task();
    }
}

std::optional<TimerQueue::Instant> TimerQueue::nextWake() const
{
    std::optional<Instant> wake;
    auto limit = Instant::max();
    for (const auto& [key, timer] : m_timers) {
        if (key.first > limit)
            break;
        wake = key.first;
        limit = std::min(limit, key.first + timer->tolerance);
    }
    return wake;
}

} // namespace haloric
