#include "loop/Clock.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <ctime>
#include <mutex>
#include <utility>

namespace substitute {
namespace {

constexpr double kLongestWait = 3600; // seconds: an infinite duration overflows

double read(clockid_t id)
{
    timespec time{};
    clock_gettime(id, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

class MachineClock final : public Clock {
public:
    double now() const override { return read(CLOCK_MONOTONIC); }
    double secondsSince1970() const override { return read(CLOCK_REALTIME); }
    bool hasThreads() const override { return true; }

    void waitUntil(double instant) override
    {
        std::unique_lock guard(m_lock);
        const std::chrono::duration<double> left(std::min(instant - now(), kLongestWait));
        m_changed.wait_for(guard, left, [this] { return m_woken; });
        m_woken = false;
    }

    void wake() override
    {
        {
            const std::lock_guard guard(m_lock);
            m_woken = true;
        }
        m_changed.notify_all();
    }

private:
    std::mutex m_lock;
    std::condition_variable m_changed;
    bool m_woken = false;
};

MachineClock& machine()
{
    static auto* const one = new MachineClock; // threads may still ask it when the process ends
    return *one;
}

std::atomic<Clock*> g_clock{nullptr};

} // namespace

Clock& clock()
{
    Clock* const replaced = g_clock;
    return replaced ? *replaced : machine();
}

void setClock(Clock* clock) { g_clock = clock; }

} // namespace substitute
