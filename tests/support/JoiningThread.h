// A thread whose destructor joins it. The standard library's is missing on macOS.
#pragma once

#include <thread>
#include <utility>

namespace haloric {

class JoiningThread {
public:
    template <class Work>
    explicit JoiningThread(Work work) : m_thread(std::move(work))
    {
    }

    JoiningThread(JoiningThread&&) = default;
    JoiningThread& operator=(JoiningThread&&) = delete;

    ~JoiningThread()
    {
        if (m_thread.joinable()) // not after it has been moved elsewhere
            m_thread.join();
    }

private:
    std::thread m_thread;
};

} // namespace haloric
