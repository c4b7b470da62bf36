// Background queues with a thread of their own each, named after the queue.
#pragma once

#include "platform/SerialQueue.h"

namespace haloric {

class LinuxSerialQueues final : public SerialQueues {
public:
    // Threads have one priority here; the quality of service is not used.
    std::unique_ptr<SerialQueue> make(std::string_view label, QualityOfService quality) override;
};

} // namespace haloric
