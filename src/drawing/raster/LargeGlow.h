// A glow that no patch can hold: around a window with very round corners, or with a very wide blur. Each pixel is
// computed where it is drawn, in a few nanoseconds. Main thread.
#pragma once

#include "drawing/PixelRect.h"
#include "drawing/raster/CoveragePainter.h"
#include "drawing/raster/GlowColors.h"
#include "drawing/raster/GlowPatch.h"
#include "drawing/raster/GlowStrips.h"

#include <cstdint>
#include <vector>

namespace haloric {

class LargeGlow {
public:
    explicit LargeGlow(const GlowKey& key); // with the whole shape
    LargeGlow(const LargeGlow&) = delete;
    LargeGlow& operator=(const LargeGlow&) = delete;

    const GlowKey& key() const { return m_key; }

    // Draws within `area` of the view; `left` and `top` are the view's pixel with the shape's upper left corner. Mode
    // is over or write.
    void paint(const CoveragePainter& target, const PixelRect& area, int left, int top, PaintMode mode);

private:
    std::uint32_t outside(float blurred) const;

    GlowKey m_key;
    GlowKernel m_kernel;
    GlowStrips m_strips;
    std::vector<std::uint32_t> m_outside; // pixels outside of the shape, by their blurred value
    std::vector<std::uint32_t> m_row;
};

} // namespace haloric
