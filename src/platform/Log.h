// The system's log: one plain line at a time. Any thread.
#pragma once

#include <string_view>

namespace haloric {

class Log {
public:
    virtual ~Log() = default;
    virtual void line(std::string_view text) = 0;
};

} // namespace haloric
