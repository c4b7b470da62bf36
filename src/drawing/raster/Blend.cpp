#include "drawing/raster/Blend.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace haloric {

namespace {

// The number of pixels processed at a time where the loop needs prepared values.
constexpr std::size_t kChunk = 16;

// Bytes and 16-bit products, of which every vector unit multiplies eight or more at once.
void blendBytes(std::uint8_t* bytes, std::size_t count, const std::uint8_t* sources, const std::uint8_t* keeps)
{
    for (std::size_t i = 0; i < count; ++i) {
        // Division by 255, rounded to nearest.
        const auto product = static_cast<std::uint16_t>(bytes[i] * keeps[i] + 128);
        bytes[i] = static_cast<std::uint8_t>(sources[i] + ((product + (product >> 8)) >> 8));
    }
}

std::uint8_t* bytesOf(std::uint32_t* pixels) { return reinterpret_cast<std::uint8_t*>(pixels); }
const std::uint8_t* bytesOf(const std::uint32_t* pixels) { return reinterpret_cast<const std::uint8_t*>(pixels); }

double unit(double component) { return component > 0 ? std::min(component, 1.0) : 0; }

// Rounded to nearest; much faster than the library functions, which respect the rounding mode.
std::uint32_t toByte(double fraction)
{
    const double half = 0.5;
    return static_cast<std::uint32_t>(fraction * 255 + half);
}

} // namespace

std::uint32_t premultiplied(const Color& color, double coverage)
{
    const double alpha = unit(color.alpha) * unit(coverage);
    return (toByte(alpha) << 24) | (toByte(unit(color.red) * alpha) << 16) | (toByte(unit(color.green) * alpha) << 8) |
           toByte(unit(color.blue) * alpha);
}

Blend blendOf(const Color& color, double coverage, PaintMode mode)
{
    const std::uint32_t source = mode == PaintMode::erase ? 0 : premultiplied(color, coverage);
    if (mode == PaintMode::over)
        return {source, 255 - alphaOf(source)};
    // Limited, because at half coverage the new and the kept part are both rounded up, to more than a byte.
    const std::uint32_t rest = std::min(toByte(1 - unit(coverage)), 255 - alphaOf(source));
    return {source, mode == PaintMode::write ? 0 : rest};
}

void fillPixels(std::uint32_t* row, std::size_t count, std::uint32_t pixel)
{
    if (pixel == 0)
        std::memset(row, 0, count * sizeof(pixel));
    else
        std::fill_n(row, count, pixel);
}

void copyPixels(std::uint32_t* row, const std::uint32_t* source, std::size_t count)
{
    std::memcpy(row, source, count * sizeof(*row));
}

void blendPixels(std::uint32_t* row, std::size_t count, Blend blend)
{
    if (blend.leavesAlone())
        return;
    if (blend.writes()) {
        fillPixels(row, count, blend.source);
        return;
    }
    std::uint32_t sources[kChunk];
    std::uint32_t keeps[kChunk];
    std::fill_n(sources, kChunk, blend.source);
    std::fill_n(keeps, kChunk, inEachByte(blend.keep));
    for (; count >= kChunk; count -= kChunk, row += kChunk)
        blendBytes(bytesOf(row), sizeof(sources), bytesOf(sources), bytesOf(keeps));
    blendPixels(row, count, sources, keeps);
}

void blendPixels(std::uint32_t* row, std::size_t count, const std::uint32_t* sources, const std::uint32_t* keeps)
{
    blendBytes(bytesOf(row), count * sizeof(*row), bytesOf(sources), bytesOf(keeps));
}

void blendPixelsOver(std::uint32_t* row, const std::uint32_t* source, std::size_t count)
{
    std::uint32_t keeps[kChunk];
    while (count > 0) {
        const std::size_t now = std::min(count, kChunk);
        for (std::size_t i = 0; i < now; ++i)
            keeps[i] = inEachByte(255 - alphaOf(source[i]));
        blendPixels(row, now, source, keeps);
        row += now;
        source += now;
        count -= now;
    }
}

} // namespace haloric
