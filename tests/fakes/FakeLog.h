// A log that keeps its lines.
#pragma once

#include "platform/Log.h"

#include <string>
#include <vector>

namespace haloric {

class FakeLog final : public Log {
public:
    std::vector<std::string> lines;
    void line(std::string_view text) override { lines.emplace_back(text); }
};

} // namespace haloric
