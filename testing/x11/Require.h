// For programs other than tests that insist on what must be so on their desktops.
#pragma once

#include <stdexcept>
#include <string>

namespace haloric {

// Throws std::runtime_error with that text unless `holds`.
inline void require(bool holds, const std::string& what)
{
    if (!holds)
        throw std::runtime_error(what);
}

} // namespace haloric
