#include "hosts/sim/loop/SimSerialQueues.h"

#include <algorithm>
#include <deque>

namespace haloric {

// Outlives the queue while blocks wait: they still run.
struct SimSerialQueues::State : std::enable_shared_from_this<SimSerialQueues::State> {
    SimSerialQueues& owner;
    std::deque<Task> blocks;
    SimRunLoop::Nanoseconds freeAt{0};
    bool scheduled = false;

    explicit State(SimSerialQueues& queues) : owner(queues) {}

    void schedule()
    {
        if (scheduled || blocks.empty() || owner.m_suspended)
            return;
        scheduled = true;
        const auto instant = std::max(owner.m_runLoop.now(), freeAt);
        owner.m_runLoop.postAt(instant, [self = shared_from_this()] { self->runFirst(); });
    }

    void runFirst()
    {
        scheduled = false;
        if (owner.m_suspended)
            return;
        owner.m_insideBlock = true;
        {
            const Task block = std::move(blocks.front()); // its captures are released on the queue as well
            blocks.pop_front();
            --owner.m_waitingBlocks;
            block();
        }
        owner.m_insideBlock = false;
        freeAt = owner.m_runLoop.now();
        schedule();
    }
};

class SimSerialQueues::Queue final : public SerialQueue {
public:
    explicit Queue(std::shared_ptr<State> state) : m_state(std::move(state)) {}

    void async(Task block) override
    {
        m_state->blocks.push_back(std::move(block));
        ++m_state->owner.m_waitingBlocks;
        m_state->schedule();
    }

private:
    std::shared_ptr<State> m_state;
};

std::unique_ptr<SerialQueue> SimSerialQueues::make(std::string_view label, QualityOfService quality)
{
    m_lastLabel = label;
    m_lastQuality = quality;
    auto state = std::make_shared<State>(*this);
    m_states.push_back(state);
    return std::make_unique<Queue>(std::move(state));
}

void SimSerialQueues::setSuspended(bool suspended)
{
    m_suspended = suspended;
    for (const auto& weak : m_states) {
        if (const auto state = weak.lock())
            state->schedule();
    }
}

} // namespace haloric
