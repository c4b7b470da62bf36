// One piece of work at a time on a thread of its own. Main thread.
#pragma once

#include "foundation/Task.h"

#include <thread>

namespace haloric {

class BackgroundThread {
public:
    BackgroundThread() = default;
    ~BackgroundThread() { wait(); }
    BackgroundThread(const BackgroundThread&) = delete;
    BackgroundThread& operator=(const BackgroundThread&) = delete;

    // Waits for the work before it, if that still runs. The work must not throw, and is bounded in time, as it keeps
    // the program from ending.
    void run(Task work)
    {
        wait();
        m_thread = std::thread(std::move(work));
    }

private:
    void wait()
    {
        if (m_thread.joinable())
            m_thread.join();
    }

    std::thread m_thread;
};

} // namespace haloric
