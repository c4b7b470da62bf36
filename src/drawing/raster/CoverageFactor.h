// A region with exactly known coverage, row by row: everything or the inside of a shape, minus the inside of a second
// shape that lies completely within the first.
#pragma once

#include "drawing/DeviceShape.h"
#include "drawing/Path.h"
#include "drawing/PixelRect.h"

#include <optional>
#include <span>

namespace haloric {

struct CoverageFactor {
    std::optional<DeviceShape> outer; // no value: everything
    std::optional<DeviceShape> inner; // no value: nothing is cut out

    static CoverageFactor inside(const DeviceShape& shape) { return {shape, std::nullopt}; }
    static CoverageFactor outside(const DeviceShape& shape) { return {std::nullopt, shape}; }

    // The coverage of a path among `visible` pixels; no value for a path that needs masks (see GeneralPainter).
    static std::optional<CoverageFactor> of(std::span<const DeviceShape> shapes, FillRule rule,
                                            const PixelRect& visible);

    bool isNothing() const { return outer && outer->empty(); }

    friend bool operator==(const CoverageFactor&, const CoverageFactor&) = default;
};

} // namespace haloric
