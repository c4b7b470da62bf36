#include "drawing/raster/CoverageFactor.h"

namespace haloric {

namespace {

bool covers(const DeviceShape& shape, const PixelRect& pixels)
{
    constexpr int unit = DeviceShape::kUnit;
    return holds(shape, {pixels.x * unit, pixels.y * unit, pixels.maxX() * unit, pixels.maxY() * unit, 0});
}

std::optional<CoverageFactor> ofTwo(const DeviceShape& first, const DeviceShape& second, const PixelRect& visible)
{
    if (covers(first, visible))
        return CoverageFactor::outside(second);
    if (covers(second, visible))
        return CoverageFactor::outside(first);
    if (holds(first, second))
        return CoverageFactor{first, second};
    if (holds(second, first))
        return CoverageFactor{second, first};
    return std::nullopt;
}

} // namespace

std::optional<CoverageFactor> CoverageFactor::of(std::span<const DeviceShape> shapes, FillRule rule,
                                                 const PixelRect& visible)
{
    DeviceShape found[2];
    std::size_t count = 0;
    for (const DeviceShape& shape : shapes) {
        if (shape.empty())
            continue;
        if (count == 2)
            return std::nullopt;
        found[count++] = shape;
    }
    if (count < 2)
        return inside(found[0]); // empty if there is no shape
    if (rule == FillRule::evenOdd)
        return ofTwo(found[0], found[1], visible);
    if (holds(found[0], found[1]))
        return inside(found[0]);
    if (holds(found[1], found[0]))
        return inside(found[1]);
    return std::nullopt;
}

} // namespace haloric
