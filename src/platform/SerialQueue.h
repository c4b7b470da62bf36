// A background queue that runs one block at a time, in the order of submission.
#pragma once

#include "foundation/Task.h"

#include <memory>
#include <string_view>

namespace haloric {

enum class QualityOfService { userInitiated, utility };

class SerialQueue {
public:
    // Blocks that were submitted before still run; on hosts with threads of their own the destructor waits for them.
    virtual ~SerialQueue() = default;

    // Any thread; does not block. Blocks must not throw.
    virtual void async(Task block) = 0;
};

class SerialQueues {
public:
    virtual ~SerialQueues() = default;

    // Main thread. `label` names the queue (and its thread) in debuggers. Never null.
    virtual std::unique_ptr<SerialQueue> make(std::string_view label, QualityOfService quality) = 0;
};

} // namespace haloric
