#include "hosts/linux/loop/LinuxRunLoop.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <system_error>

#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <sys/timerfd.h>
#include <unistd.h>

namespace haloric {

namespace {

// Hooks that keep finding work must not keep timers from firing.
constexpr int kMaximumHookRounds = 16;

int requireDescriptor(int descriptor, const char* what)
{
    if (descriptor < 0)
        throw std::system_error(errno, std::generic_category(), what);
    return descriptor;
}

void addToSet(int epoll, int descriptor)
{
    epoll_event event{};
    event.events = EPOLLIN;
    event.data.fd = descriptor;
    requireDescriptor(epoll_ctl(epoll, EPOLL_CTL_ADD, descriptor, &event), "epoll_ctl");
}

void drain(int descriptor)
{
    std::uint64_t count = 0;
    while (read(descriptor, &count, sizeof count) > 0) {
    }
}

template <class Duration>
Duration rounded(Seconds seconds)
{
    return std::chrono::round<Duration>(std::clamp(seconds, Seconds(0), Seconds(1e9)));
}

} // namespace

struct LinuxRunLoop::Watch {
    Task onReadable;
    bool active = true;
};

struct LinuxRunLoop::Hook {
    std::function<bool()> call;
    bool active = true;
};

LinuxRunLoop::LinuxRunLoop()
    : m_epoll(requireDescriptor(epoll_create1(EPOLL_CLOEXEC), "epoll_create1")),
      m_timerDescriptor(requireDescriptor(timerfd_create(CLOCK_MONOTONIC, TFD_NONBLOCK | TFD_CLOEXEC), "timerfd")),
      m_wakeDescriptor(requireDescriptor(eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC), "eventfd"))
{
    addToSet(m_epoll, m_timerDescriptor);
    addToSet(m_epoll, m_wakeDescriptor);
}

LinuxRunLoop::~LinuxRunLoop()
{
    close(m_wakeDescriptor);
    close(m_timerDescriptor);
    close(m_epoll);
}

Seconds LinuxRunLoop::systemUptime() const { return Clock::now().time_since_epoch(); }

Seconds LinuxRunLoop::wallClock() const { return std::chrono::system_clock::now().time_since_epoch(); }

void LinuxRunLoop::post(Task task)
{
    bool wasEmpty = false;
    {
        const std::lock_guard guard(m_lock);
        wasEmpty = m_posted.empty() && m_postedDelayed.empty();
        m_posted.push_back(std::move(task));
    }
    if (wasEmpty && !isWaitingThread())
        wake();
}

void LinuxRunLoop::postAfter(Seconds delay, Task task)
{
    bool wasEmpty = false;
    {
        const std::lock_guard guard(m_lock);
        wasEmpty = m_posted.empty() && m_postedDelayed.empty();
        m_postedDelayed.emplace_back(Clock::now() + rounded<Clock::duration>(delay), std::move(task));
    }
    if (wasEmpty && !isWaitingThread())
        wake();
}

// That thread calls `prepareToWait` again before it waits, which finds what was posted.
bool LinuxRunLoop::isWaitingThread() const { return std::this_thread::get_id() == m_waitingThread.load(); }

void LinuxRunLoop::wake()
{
    const std::uint64_t one = 1;
    [[maybe_unused]] const auto written = write(m_wakeDescriptor, &one, sizeof one); // full means: already awake
}

Subscription LinuxRunLoop::scheduleOnce(Seconds delay, Task task)
{
    return m_timers.add(Clock::now() + rounded<Clock::duration>(delay), {}, {}, std::move(task));
}

Subscription LinuxRunLoop::scheduleRepeating(Seconds interval, Seconds tolerance, Task task)
{
    const auto beat = rounded<Clock::duration>(interval);
    return m_timers.add(Clock::now() + beat, beat, rounded<Clock::duration>(tolerance), std::move(task));
}

Subscription LinuxRunLoop::watch(int descriptor, Task onReadable)
{
    auto watch = std::make_shared<Watch>(Watch{std::move(onReadable)});
    m_watches[descriptor] = watch;
    addToSet(m_epoll, descriptor);
    return Subscription([this, descriptor, watch] {
        watch->active = false;
        m_watches.erase(descriptor);
        epoll_ctl(m_epoll, EPOLL_CTL_DEL, descriptor, nullptr);
    });
}

Subscription LinuxRunLoop::onBeforeWait(std::function<bool()> hook)
{
    auto entry = std::make_shared<Hook>(Hook{std::move(hook)});
    m_hooks.push_back(entry);
    return Subscription([this, entry] {
        entry->active = false;
        std::erase(m_hooks, entry);
    });
}

void LinuxRunLoop::run()
{
    m_running = true;
    while (m_running)
        turn(Seconds(1e9));
}

void LinuxRunLoop::stop()
{
    m_running = false;
    wake();
}

bool LinuxRunLoop::prepareToWait()
{
    m_waitingThread.store(std::this_thread::get_id());
    runHooks();
    takeInDelayedPosts();
    armDescriptor();
    {
        const std::lock_guard guard(m_lock);
        if (m_posted.empty())
            return true;
    }
    wake(); // a turn that is still under way, around this one, may have taken the first call already
    return false;
}

void LinuxRunLoop::turn(Seconds maximumWait)
{
    const bool mayWait = prepareToWait();
    const auto limit = std::min(rounded<std::chrono::milliseconds>(maximumWait), std::chrono::milliseconds(1 << 30));
    std::array<epoll_event, 16> ready{};
    const int count =
        epoll_wait(m_epoll, ready.data(), int{ready.size()}, mayWait ? static_cast<int>(limit.count()) : 0);
    for (int index = 0; index < count; ++index)
        handleReadable(ready[static_cast<std::size_t>(index)].data.fd);
    m_timers.runDue(Clock::now());
    runPosted();
}

void LinuxRunLoop::handleReadable(int descriptor)
{
    if (descriptor == m_timerDescriptor) {
        drain(descriptor);
        m_armedFor.reset();
        return;
    }
    if (descriptor == m_wakeDescriptor) {
        drain(descriptor);
        return;
    }
    const auto found = m_watches.find(descriptor);
    if (found == m_watches.end())
        return; // cancelled by an earlier handler of this turn
    const auto watch = found->second;
    if (watch->active)
        watch->onReadable();
}

void LinuxRunLoop::runHooks()
{
    for (int round = 0; round < kMaximumHookRounds; ++round) {
        bool worked = false;
        const auto hooks = m_hooks;
        for (const auto& hook : hooks)
            worked = (hook->active && hook->call()) || worked;
        if (!worked)
            return;
    }
    post([] {}); // more is waiting: turn again without sleeping
}

void LinuxRunLoop::takeInDelayedPosts()
{
    std::vector<std::pair<Clock::time_point, Task>> delayed;
    {
        const std::lock_guard guard(m_lock);
        delayed.swap(m_postedDelayed);
    }
    for (auto& [deadline, task] : delayed)
        m_timers.post(deadline, std::move(task));
}

void LinuxRunLoop::runPosted()
{
    std::size_t count = 0;
    {
        const std::lock_guard guard(m_lock);
        count = m_posted.size();
    }
    // One by one: a task may turn the loop itself, and those behind it then run from there.
    for (; count > 0; --count) {
        Task task;
        {
            const std::lock_guard guard(m_lock);
            if (m_posted.empty())
                return;
            task = std::move(m_posted.front());
            m_posted.pop_front();
        }
        task();
    }
}

void LinuxRunLoop::armDescriptor()
{
    const auto wake = m_timers.nextWake();
    if (wake == m_armedFor)
        return;
    m_armedFor = wake;
    itimerspec when{};
    if (wake) {
        // A zero value would disarm the descriptor.
        const auto instant = std::max(wake->time_since_epoch(), Clock::duration(1));
        const auto seconds = std::chrono::floor<std::chrono::seconds>(instant);
        when.it_value.tv_sec = seconds.count();
        when.it_value.tv_nsec = std::chrono::nanoseconds(instant - seconds).count();
    }
    timerfd_settime(m_timerDescriptor, TFD_TIMER_ABSTIME, &when, nullptr);
}

} // namespace haloric
