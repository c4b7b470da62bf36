// A picture that owns its pixels.
#pragma once

#include "drawing/raster/PixelBuffer.h"

#include <vector>

namespace haloric {

struct Picture {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels; // row by row, as PixelBuffer's

    Picture() = default;

    // Transparent. Sizes are zero or more.
    Picture(int newWidth, int newHeight)
        : width(newWidth),
          height(newHeight),
          pixels(static_cast<std::size_t>(newWidth) * static_cast<std::size_t>(newHeight))
    {
    }

    PixelBuffer buffer() { return {pixels.data(), width, height, width * static_cast<int>(sizeof(std::uint32_t))}; }

    std::uint32_t at(int x, int y) const
    {
        return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x)];
    }

    friend bool operator==(const Picture&, const Picture&) = default;
};

} // namespace haloric
