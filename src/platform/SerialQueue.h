// A queue that runs one block at a time, in the order of submission, on a thread of its own or on the main thread.
#pragma once

#include "foundation/Task.h"

#include <memory>
#include <string_view>

namespace haloric {

enum class QualityOfService { userInitiated, utility };

class SerialQueue {
public:
    // Blocks that were submitted before still run, inside the destructor or after it.
    virtual ~SerialQueue() = default;

    // Main thread; does not block. The block runs later, never inside this call, and must not throw.
    virtual void async(Task block) = 0;
};

class SerialQueues {
public:
    virtual ~SerialQueues() = default;

    // Main thread. `label` names the queue (and its thread) in debuggers. Never null.
    virtual std::unique_ptr<SerialQueue> make(std::string_view label, QualityOfService quality) = 0;
};

} // namespace haloric
