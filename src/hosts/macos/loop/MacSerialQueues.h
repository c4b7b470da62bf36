// Serial queues as dispatch queues.
#pragma once

#include "platform/SerialQueue.h"

namespace haloric {

class MacSerialQueues final : public SerialQueues {
public:
    std::unique_ptr<SerialQueue> make(std::string_view label, QualityOfService quality) override;
};

} // namespace haloric
