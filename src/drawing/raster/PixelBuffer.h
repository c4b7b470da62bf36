// Pixels in memory that the caller owns: 32 bits each in native byte order, alpha in the highest byte, then red, green
// and blue, premultiplied.
#pragma once

#include <cstddef>
#include <cstdint>

namespace haloric {

struct PixelBuffer {
    std::uint32_t* data = nullptr;
    int width = 0;
    int height = 0;
    int stride = 0; // bytes from one row to the next; a multiple of four

    std::uint32_t* row(int y) const
    {
        return data + static_cast<std::ptrdiff_t>(y) * (stride / static_cast<int>(sizeof(std::uint32_t)));
    }
};

} // namespace haloric
