// Preconditions of the demonstration and the benchmarks, which have no test framework.
#pragma once

#include <stdexcept>
#include <string>

namespace haloric {

// Throws std::runtime_error with the text `what` unless `holds`.
inline void require(bool holds, const std::string& what)
{
    if (!holds)
        throw std::runtime_error(what);
}

} // namespace haloric
