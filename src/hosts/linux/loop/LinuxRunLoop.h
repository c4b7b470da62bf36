// The main loop of a Linux host: one epoll set with a timer descriptor for every deadline and an event descriptor
// for work posted from other threads. Another loop can drive it instead: it calls `prepareToWait` before each of its
// waits, watches `pollableDescriptor` meanwhile, and calls `turn` when that can be read.
#pragma once

#include "hosts/linux/loop/EventLoop.h"
#include "hosts/linux/loop/TimerQueue.h"
#include "platform/RunLoop.h"

#include <atomic>
#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <unordered_map>
#include <utility>
#include <vector>

namespace haloric {

class LinuxRunLoop final : public RunLoop, public EventLoop {
public:
    LinuxRunLoop();
    ~LinuxRunLoop() override;

    // RunLoop
    Seconds systemUptime() const override;
    Seconds wallClock() const override;
    void post(Task task) override;
    void postAfter(Seconds delay, Task task) override;
    Subscription scheduleOnce(Seconds delay, Task task) override;
    Subscription scheduleRepeating(Seconds interval, Seconds tolerance, Task task) override;

    // Calls `onReadable` on the main thread whenever `descriptor` can be read, until cancelled. Main thread.
    Subscription watch(int descriptor, Task onReadable);

    // Called before the loop goes to sleep, in the order of registration: to take in what was read ahead and to
    // flush what was written. A hook that did some work returns true; the hooks are then asked again. Main thread.
    Subscription onBeforeWait(std::function<bool()> hook);

    // EventLoop
    void run() override;
    void stop() override;

    // One turn: runs what is due, waiting at most `maximumWait` for something to come. May be called from within a
    // task, by a loop that such a task runs until the user has answered. Main thread.
    void turn(Seconds maximumWait);

    // Calls the hooks and sets the descriptors for the next deadline. False when there is work left to do at once.
    // Main thread.
    bool prepareToWait();

    // Readable whenever a turn would find something to do, as far as that was known to the last `prepareToWait`.
    int pollableDescriptor() const { return m_epoll; }

private:
    using Clock = std::chrono::steady_clock;
    struct Watch;
    struct Hook;

    bool isWaitingThread() const;
    void wake();
    void runHooks();
    void takeInDelayedPosts();
    void handleReadable(int descriptor);
    void runPosted();
    void armDescriptor();

    std::atomic<std::thread::id> m_waitingThread; // the one that prepares and waits; none before the first time
    int m_epoll = -1;
    int m_timerDescriptor = -1;
    int m_wakeDescriptor = -1;
    bool m_running = false;
    TimerQueue m_timers;
    std::optional<Clock::time_point> m_armedFor;
    std::unordered_map<int, std::shared_ptr<Watch>> m_watches;
    std::vector<std::shared_ptr<Hook>> m_hooks;

    std::mutex m_lock; // guards the next two
    std::deque<Task> m_posted;
    std::vector<std::pair<Clock::time_point, Task>> m_postedDelayed;
};

} // namespace haloric
