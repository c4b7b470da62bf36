// The modifier keys in the flags of a key event, with the numbers of macOS. Flags may have further bits.
#pragma once

#include <cstdint>

namespace haloric {

struct ModifierFlags {
    static constexpr std::uint64_t kCapsLock = 0x10000;
    static constexpr std::uint64_t kShift = 0x20000;
    static constexpr std::uint64_t kControl = 0x40000;
    static constexpr std::uint64_t kOption = 0x80000;
    static constexpr std::uint64_t kCommand = 0x100000;
};

} // namespace haloric
