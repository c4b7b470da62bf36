// Ends a measurement whose desktop is not as it must be.
#pragma once

#include <stdexcept>

namespace haloric {

// Throws std::runtime_error with that text unless `holds`.
inline void require(bool holds, const char* what)
{
    if (!holds)
        throw std::runtime_error(what);
}

} // namespace haloric
