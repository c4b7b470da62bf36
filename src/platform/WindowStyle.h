// The bits of a window's style mask, with the numbers of macOS.
#pragma once

#include <cstdint>

namespace haloric {

struct WindowStyle {
    static constexpr std::uint64_t kBorderless = 0;
    static constexpr std::uint64_t kTitled = 1;
    static constexpr std::uint64_t kClosable = 2;
    static constexpr std::uint64_t kMiniaturizable = 4;
    static constexpr std::uint64_t kResizable = 8;
};

} // namespace haloric
