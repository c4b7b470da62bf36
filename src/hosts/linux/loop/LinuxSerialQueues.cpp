#include "hosts/linux/loop/LinuxSerialQueues.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <string>
#include <thread>

#include <pthread.h>

namespace haloric {

namespace {

constexpr std::size_t kLongestThreadName = 15; // the system's limit

class ThreadQueue final : public SerialQueue {
public:
    explicit ThreadQueue(std::string_view label) : m_thread([this] { work(); })
    {
        // Labels are written like "com.example.program.duty": the duty tells the queues of one program apart.
        const std::string name(label.substr(label.rfind('.') + 1).substr(0, kLongestThreadName));
        pthread_setname_np(m_thread.native_handle(), name.c_str());
    }

    ~ThreadQueue() override
    {
        {
            const std::lock_guard guard(m_lock);
            m_ending = true;
        }
        m_changed.notify_one();
        m_thread.join();
    }

    ThreadQueue(const ThreadQueue&) = delete;
    ThreadQueue& operator=(const ThreadQueue&) = delete;

    void async(Task block) override
    {
        {
            const std::lock_guard guard(m_lock);
            m_blocks.push_back(std::move(block));
        }
        m_changed.notify_one();
    }

private:
    void work()
    {
        std::unique_lock guard(m_lock);
        while (true) {
            m_changed.wait(guard, [this] { return m_ending || !m_blocks.empty(); });
            if (m_blocks.empty())
                return;
            Task block = std::move(m_blocks.front());
            m_blocks.pop_front();
            guard.unlock();
            block();
            block = nullptr; // what it holds is released without the lock
            guard.lock();
        }
    }

    std::mutex m_lock; // guards the next two
    std::deque<Task> m_blocks;
    bool m_ending = false;
    std::condition_variable m_changed;
    std::thread m_thread; // last: it uses the others from its first instruction
};

} // namespace

std::unique_ptr<SerialQueue> LinuxSerialQueues::make(std::string_view label, QualityOfService)
{
    return std::make_unique<ThreadQueue>(label);
}

} // namespace haloric
