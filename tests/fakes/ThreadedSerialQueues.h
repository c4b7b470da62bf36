// Serial queues with a real thread each, to show races that virtual time cannot have.
#pragma once

#include "platform/SerialQueue.h"
#include "support/JoiningThread.h"

#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <utility>

namespace haloric {

class ThreadedSerialQueues final : public SerialQueues {
public:
    std::unique_ptr<SerialQueue> make(std::string_view, QualityOfService) override { return std::make_unique<Queue>(); }

private:
    class Queue final : public SerialQueue {
    public:
        ~Queue() override { async(nullptr); } // the end; then the thread is waited for

        void async(Task block) override
        {
            const std::lock_guard lock(m_mutex);
            m_blocks.push_back(std::move(block));
            m_changed.notify_one();
        }

    private:
        Task next()
        {
            std::unique_lock lock(m_mutex);
            m_changed.wait(lock, [this] { return !m_blocks.empty(); });
            Task block = std::move(m_blocks.front());
            m_blocks.pop_front();
            return block;
        }

        std::mutex m_mutex;
        std::condition_variable m_changed;
        std::deque<Task> m_blocks;
        JoiningThread m_thread{[this] {
            while (const Task block = next())
                block();
        }};
    };
};

} // namespace haloric
