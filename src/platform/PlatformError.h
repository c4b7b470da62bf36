// An error that the platform reported, with its own words for the user.
#pragma once

#include <cstdint>
#include <string>

namespace haloric {

struct PlatformError {
    std::string domain; // which part of the platform; empty when it has no name
    std::int64_t code = 0;
    std::string localizedDescription;
    std::string localizedRecoverySuggestion; // empty when there is none
    friend bool operator==(const PlatformError&, const PlatformError&) = default;
};

} // namespace haloric
