#include "hosts/sim/loop/SimRunLoop.h"

#include <algorithm>
#include <memory>

namespace haloric {

namespace {

SimRunLoop::Nanoseconds toNanoseconds(Seconds duration)
{
    return std::chrono::round<SimRunLoop::Nanoseconds>(duration);
}

} // namespace

struct SimRunLoop::Timer {
    Task task;
    Nanoseconds interval{0}; // zero: fires once
    Seconds tolerance{0};
    Key key;
    bool armed = true;
};

Seconds SimRunLoop::systemUptime() const { return now(); }

Seconds SimRunLoop::wallClock() const { return m_wallClockOrigin + systemUptime(); }

void SimRunLoop::post(Task task) { postAfter(Seconds(0), std::move(task)); }

void SimRunLoop::postAfter(Seconds delay, Task task)
{
    if (std::this_thread::get_id() == m_mainThread) {
        postAt(now() + toNanoseconds(delay), std::move(task));
        return;
    }
    const std::lock_guard guard(m_lock);
    m_posts.emplace_back(toNanoseconds(delay), std::move(task));
    m_hasPosts = true;
}

void SimRunLoop::takeInPosts()
{
    if (!m_hasPosts)
        return;
    std::vector<std::pair<Nanoseconds, Task>> posts;
    {
        const std::lock_guard guard(m_lock);
        posts.swap(m_posts);
        m_hasPosts = false;
    }
    for (auto& [delay, task] : posts)
        postAt(now() + delay, std::move(task));
}

Subscription SimRunLoop::scheduleOnce(Seconds delay, Task task)
{
    return arm(delay, Seconds(0), Seconds(0), std::move(task));
}

Subscription SimRunLoop::scheduleRepeating(Seconds interval, Seconds tolerance, Task task)
{
    return arm(interval, interval, tolerance, std::move(task));
}

void SimRunLoop::postAt(Nanoseconds instant, Task task) { insert(std::max(instant, m_now), std::move(task)); }

SimRunLoop::Key SimRunLoop::insert(Nanoseconds instant, Task task)
{
    const Key key{instant, m_sequence++};
    m_events.emplace(key, std::move(task));
    return key;
}

Subscription SimRunLoop::arm(Seconds delay, Seconds interval, Seconds tolerance, Task task)
{
    auto timer = std::make_shared<Timer>();
    timer->task = std::move(task);
    timer->interval = toNanoseconds(interval);
    timer->tolerance = tolerance;
    timer->key = insert(now() + toNanoseconds(delay), [this, timer] { fire(timer); });
    m_armedTolerances.insert(tolerance);
    return Subscription([this, timer] {
        if (!timer->armed)
            return;
        disarm(*timer);
        m_events.erase(timer->key);
    });
}

void SimRunLoop::disarm(Timer& timer)
{
    timer.armed = false;
    m_armedTolerances.erase(m_armedTolerances.find(timer.tolerance));
}

void SimRunLoop::fire(const std::shared_ptr<Timer>& timer)
{
    if (timer->interval > Nanoseconds(0)) {
        timer->key = insert(timer->key.first + timer->interval, [this, timer] { fire(timer); });
    } else {
        disarm(*timer);
    }
    const Task task = timer->task; // a copy: the task may cancel its timer, which frees it
    task();
}

void SimRunLoop::runFirst()
{
    auto first = m_events.begin();
    m_now = std::max(m_now, first->first.first);
    const Task task = std::move(first->second);
    m_events.erase(first);
    task();
    m_spent = Nanoseconds(0);
}

bool SimRunLoop::runNext()
{
    takeInPosts();
    if (m_events.empty())
        return false;
    runFirst();
    return true;
}

void SimRunLoop::discardPending()
{
    takeInPosts();
    const auto discarded = std::exchange(m_events, {}); // tasks may cancel timers while they are destroyed
}

std::optional<SimRunLoop::Nanoseconds> SimRunLoop::nextDue() const
{
    return m_events.empty() ? std::nullopt : std::optional(m_events.begin()->first.first);
}

void SimRunLoop::runFor(Seconds duration)
{
    const Nanoseconds end = m_now + toNanoseconds(duration);
    for (takeInPosts(); !m_events.empty() && m_events.begin()->first.first <= end; takeInPosts())
        runFirst();
    m_now = std::max(m_now, end); // an event may have run the loop for longer
}

void SimRunLoop::spend(Seconds duration) { m_spent += toNanoseconds(duration); }

} // namespace haloric
