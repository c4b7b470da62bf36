// Strong identifiers: values of different kinds cannot be mixed up, and zero means "none" for each of them.
#pragma once

#include <cstdint>

namespace haloric {

enum class ProcessID : std::int32_t { none = 0 };

// The window server's number of a window.
enum class WindowNumber : std::uint32_t { none = 0 };

enum class DisplayID : std::uint32_t { none = 0 };

// Identifies a focused window: its window number if it has one, else a hash of its Accessibility element.
enum class WindowIdentity : std::uint64_t { none = 0 };

constexpr WindowIdentity identityOf(WindowNumber number)
{
    return static_cast<WindowIdentity>(static_cast<std::uint32_t>(number));
}

} // namespace haloric
