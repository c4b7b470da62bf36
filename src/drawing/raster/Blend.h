// Rows of premultiplied ARGB pixels: the plain loops that all drawing ends in, for the compiler to vectorise. Eight
// bits a component, rounded to nearest; the components of a pixel are never above its alpha if they were not before.
#pragma once

#include "foundation/Color.h"

#include <cstddef>
#include <cstdint>

namespace haloric {

// What a pixel becomes: source + old × keep / 255. Keep 0 writes, keep 255 with source 0 leaves alone.
struct Blend {
    std::uint32_t source = 0;
    std::uint32_t keep = 255;

    bool writes() const { return keep == 0; }
    bool leavesAlone() const { return keep == 255 && source == 0; }
};

// A colour at `coverage` 0...1 as a pixel. Components are cut to 0...1; what is no number counts as 0.
std::uint32_t premultiplied(const Color& color, double coverage);

constexpr std::uint32_t alphaOf(std::uint32_t pixel) { return pixel >> 24; }

// How a colour meets what is there. `write` is for pixels known to be transparent: it gives what `over` would give,
// without reading them.
enum class PaintMode { over, write, erase, copy };

// A colour where it covers a pixel by `coverage`, 0...1.
Blend blendOf(const Color& color, double coverage, PaintMode mode);

void fillPixels(std::uint32_t* row, std::size_t count, std::uint32_t pixel);
void copyPixels(std::uint32_t* row, const std::uint32_t* source, std::size_t count);

// One way for all pixels.
void blendPixels(std::uint32_t* row, std::size_t count, Blend blend);

// One for each: what a pixel keeps is given four times, once for each of its bytes.
void blendPixels(std::uint32_t* row, std::size_t count, const std::uint32_t* sources, const std::uint32_t* keeps);

constexpr std::uint32_t inEachByte(std::uint32_t byte) { return byte | byte << 8 | byte << 16 | byte << 24; }

// Premultiplied pixels over what is there.
void blendPixelsOver(std::uint32_t* row, const std::uint32_t* source, std::size_t count);

} // namespace haloric
