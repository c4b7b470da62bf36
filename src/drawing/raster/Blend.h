// Rows of premultiplied ARGB pixels: the innermost loops of all drawing, which the compiler vectorises. Eight bits per
// component, rounded to nearest; no component of a pixel exceeds its alpha if none did before.
#pragma once

#include "foundation/Color.h"

#include <cstddef>
#include <cstdint>

namespace haloric {

// The new value of a pixel: source + old × keep / 255. Keep 0 overwrites; keep 255 with source 0 changes nothing.
struct Blend {
    std::uint32_t source = 0;
    std::uint32_t keep = 255;

    bool writes() const { return keep == 0; }
    bool leavesAlone() const { return keep == 255 && source == 0; }
};

// A colour at `coverage` 0...1 as a pixel. Components are limited to 0...1; NaN counts as 0.
std::uint32_t premultiplied(const Color& color, double coverage);

constexpr std::uint32_t alphaOf(std::uint32_t pixel) { return pixel >> 24; }

// How a colour is combined with the pixel below. `write` is for pixels known to be transparent: the result is that of
// `over`, without reading them.
enum class PaintMode { over, write, erase, copy };

// The blend for a colour that covers `coverage`, 0...1, of a pixel.
Blend blendOf(const Color& color, double coverage, PaintMode mode);

void fillPixels(std::uint32_t* row, std::size_t count, std::uint32_t pixel);
void copyPixels(std::uint32_t* row, const std::uint32_t* source, std::size_t count);

// The same blend for all pixels.
void blendPixels(std::uint32_t* row, std::size_t count, Blend blend);

// One blend per pixel; each keep is repeated in all four bytes.
void blendPixels(std::uint32_t* row, std::size_t count, const std::uint32_t* sources, const std::uint32_t* keeps);

constexpr std::uint32_t inEachByte(std::uint32_t byte) { return byte | byte << 8 | byte << 16 | byte << 24; }

// Premultiplied pixels over the row.
void blendPixelsOver(std::uint32_t* row, const std::uint32_t* source, std::size_t count);

} // namespace haloric
