// The glow around a rounded rectangle, as pixels that fit every size of it.
//
// Outside the rectangle a glow depends on the blur, the corners and the colours, but not on the length of the sides. So
// it is computed once, around the smallest rectangle whose corners do not affect one another, and the middle column and
// row are repeated for larger ones. Around a smaller rectangle it is computed as it is, and nothing is repeated.
//
// There is no blur pass: a rounded rectangle is a stack of thin strips, a blurred strip is the product of two
// differences of cumulative functions, one across and one down, and the glow is the sum over the strips.
#pragma once

#include "drawing/DeviceShape.h"
#include "drawing/GlowKernel.h"
#include "drawing/raster/GlowColors.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace haloric {

// Everything that a patch depends on.
struct GlowKey {
    // The smallest rectangle, its upper left corner within pixel (0, 0).
    DeviceShape shape;
    double blurRadius = 0; // pixels
    GlowColors colors;

    // No value if the patch would be too large to keep.
    static std::optional<GlowKey> of(const DeviceShape& shape, double blurRadius, const GlowColors& colors);

    // With the whole shape, moved by whole pixels.
    static GlowKey ofWhole(const DeviceShape& shape, double blurRadius, const GlowColors& colors);

    friend bool operator==(const GlowKey&, const GlowKey&) = default;
};

class GlowPatch {
public:
    // The pixels of one row that may not be transparent: from 0 to leftEnd and from rightBegin to the width.
    struct Extent {
        int leftEnd = 0;
        int rightBegin = 0;
    };

    explicit GlowPatch(const GlowKey& key);

    // From the pixel with the rectangle's upper left corner to the patch's first pixel, in x and y.
    int offset() const { return -m_reach; }

    int width() const { return m_width; }
    int height() const { return m_height; }
    std::size_t pixels() const { return m_pixels.size(); }

    // The repeated column and row; the middle if nothing is repeated.
    int middleColumn() const { return m_width / 2; }
    int middleRow() const { return m_height / 2; }

    const std::uint32_t* row(int y) const { return m_pixels.data() + index(y); }
    Extent extent(int y) const { return m_extents[static_cast<std::size_t>(y)]; }

private:
    std::size_t index(int y) const { return static_cast<std::size_t>(y) * static_cast<std::size_t>(m_width); }
    void compute(const GlowKey& key);
    void findExtents();

    int m_reach; // pixels from the rectangle's outermost pixels to the patch's
    int m_width;
    int m_height;
    std::vector<std::uint32_t> m_pixels;
    std::vector<Extent> m_extents;
};

} // namespace haloric
