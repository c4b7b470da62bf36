// A region whose coverage is known exactly, row by row: everything, or the inside of a shape, less the inside of
// another shape that lies wholly within the first.
#pragma once

#include "drawing/DeviceShape.h"
#include "drawing/Path.h"
#include "drawing/PixelRect.h"

#include <optional>
#include <span>

namespace haloric {

struct CoverageFactor {
    std::optional<DeviceShape> outer; // none: everything
    std::optional<DeviceShape> inner; // none: nothing is cut out

    static CoverageFactor inside(const DeviceShape& shape) { return {shape, std::nullopt}; }
    static CoverageFactor outside(const DeviceShape& shape) { return {std::nullopt, shape}; }

    // What a path covers among `visible` pixels; none for a path that needs the general way.
    static std::optional<CoverageFactor> of(std::span<const DeviceShape> shapes, FillRule rule,
                                            const PixelRect& visible);

    bool isNothing() const { return outer && outer->empty(); }

    friend bool operator==(const CoverageFactor&, const CoverageFactor&) = default;
};

} // namespace haloric
