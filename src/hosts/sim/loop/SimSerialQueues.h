// Background queues in virtual time. A block runs at the instant at which the queue is free; the time it spends
// (SimRunLoop::spend) keeps the queue busy and delays what it posts, while the main loop goes on.
#pragma once

#include "hosts/sim/loop/SimRunLoop.h"
#include "platform/SerialQueue.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace haloric {

class SimSerialQueues final : public SerialQueues {
public:
    explicit SimSerialQueues(SimRunLoop& runLoop) : m_runLoop(runLoop) {}

    std::unique_ptr<SerialQueue> make(std::string_view label, QualityOfService quality) override;

    // The arguments of the last call of `make`.
    const std::string& lastLabel() const { return m_lastLabel; }
    QualityOfService lastQuality() const { return m_lastQuality; }

    // Blocks are queued but not run while this is set, for tests that look at the time between.
    void setSuspended(bool suspended);

    // Blocks of all queues that were submitted and have not run yet.
    std::size_t waitingBlocks() const { return m_waitingBlocks; }

    // Whether the code that runs now is a block of a queue.
    bool isInsideBlock() const { return m_insideBlock; }

private:
    class Queue;
    struct State;

    SimRunLoop& m_runLoop;
    std::string m_lastLabel;
    QualityOfService m_lastQuality = QualityOfService::utility;
    bool m_suspended = false;
    std::vector<std::weak_ptr<State>> m_states;
    bool m_insideBlock = false;
    std::size_t m_waitingBlocks = 0;
};

} // namespace haloric
