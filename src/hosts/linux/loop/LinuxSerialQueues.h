// Serial queues without threads: blocks run on the main thread as tasks of the run loop. No block of the Linux hosts
// waits for another program, so a thread would only add locks and wake-ups.
#pragma once

#include "platform/RunLoop.h"
#include "platform/SerialQueue.h"

namespace haloric {

class LinuxSerialQueues final : public SerialQueues {
public:
    // The loop outlives every queue.
    explicit LinuxSerialQueues(RunLoop& runLoop) : m_runLoop(runLoop) {}

    // Label and quality of service are not used. The destructor of a queue runs the blocks that still wait.
    std::unique_ptr<SerialQueue> make(std::string_view label, QualityOfService quality) override;

private:
    RunLoop& m_runLoop;
};

} // namespace haloric
