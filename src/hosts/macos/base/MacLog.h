// The unified log of macOS, through NSLog.
#pragma once

#include "platform/Log.h"

namespace haloric {

class MacLog final : public Log {
public:
    void line(std::string_view text) override;
};

} // namespace haloric
