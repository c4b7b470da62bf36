#include "hosts/linux/loop/LinuxSerialQueues.h"

#include <deque>
#include <utility>

namespace haloric {

namespace {

class PostedQueue final : public SerialQueue {
public:
    explicit PostedQueue(RunLoop& runLoop) : m_runLoop(runLoop) {}

    ~PostedQueue() override
    {
        while (!m_blocks->empty())
            runFirst(*m_blocks);
    }

    PostedQueue(const PostedQueue&) = delete;
    PostedQueue& operator=(const PostedQueue&) = delete;

    void async(Task block) override
    {
        m_blocks->push_back(std::move(block));
        m_runLoop.post([blocks = m_blocks] {
            if (!blocks->empty()) // the destructor may have run it
                runFirst(*blocks);
        });
    }

private:
    using Blocks = std::deque<Task>;

    static void runFirst(Blocks& blocks)
    {
        const Task block = std::move(blocks.front());
        blocks.pop_front();
        block();
    }

    RunLoop& m_runLoop;
    std::shared_ptr<Blocks> m_blocks = std::make_shared<Blocks>(); // shared with the tasks that are posted
};

} // namespace

std::unique_ptr<SerialQueue> LinuxSerialQueues::make(std::string_view, QualityOfService)
{
    return std::make_unique<PostedQueue>(m_runLoop);
}

} // namespace haloric
