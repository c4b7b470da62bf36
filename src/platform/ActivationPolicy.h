// How an application appears to the user, numbered as on macOS.
#pragma once

#include <cstdint>

namespace haloric {

enum class ActivationPolicy : std::int64_t {
    regular = 0, // in the Dock, with a menu bar
    accessory = 1,
    prohibited = 2,
};

} // namespace haloric
