// An error that the system reported, with its texts for the user.
#pragma once

#include <cstdint>
#include <string>

namespace haloric {

struct PlatformError {
    std::string domain = {}; // the part of the system that failed; may be empty
    std::int64_t code = 0;
    std::string localizedDescription = {};
    std::string localizedRecoverySuggestion = {}; // may be empty
    friend bool operator==(const PlatformError&, const PlatformError&) = default;
};

} // namespace haloric
