// The numbers of the window server's events that the program registers for, in the order of registration.
#pragma once

#include <array>
#include <cstdint>

namespace haloric {

enum class WindowServerEvent : std::uint32_t {
    destroyed = 804,
    moved = 806,
    resized = 807,
    orderedOut = 816, // minimised, hidden, or on another Space
};

inline constexpr std::array kWindowServerEvents{WindowServerEvent::destroyed, WindowServerEvent::moved,
                                                WindowServerEvent::resized, WindowServerEvent::orderedOut};

} // namespace haloric
