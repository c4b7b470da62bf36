// Draws glows from patches and keeps the last few, so that a window that moves or changes its size needs no new one. A
// glow that is too large for a patch is computed where it is drawn.
// Main thread.
#pragma once

#include "drawing/PixelRect.h"
#include "drawing/raster/CoveragePainter.h"
#include "drawing/raster/GlowPatch.h"
#include "drawing/raster/LargeGlow.h"

#include <list>
#include <optional>

namespace haloric {

class GlowTiles {
public:
    // The maximum number of patches, and of their pixels; the least recently drawn one is removed first.
    static constexpr std::size_t kMaxPatches = 8;
    static constexpr std::size_t kMaxPixels = std::size_t{4} << 20;

    // A glow around `shape`, within `area` of the view. Mode is over or write.
    void paint(const CoveragePainter& target, const PixelRect& area, const DeviceShape& shape, double blurRadius,
               const GlowColors& colors, PaintMode mode);

    std::size_t patches() const { return m_patches.size(); }
    std::size_t patchesBuilt() const { return m_built; }

private:
    struct Kept {
        GlowKey key;
        GlowPatch patch;
    };

    const GlowPatch& patchFor(const GlowKey& key);
    LargeGlow& largeGlowFor(const GlowKey& key);
    void makeRoom();

    std::list<Kept> m_patches; // most recently drawn first
    std::size_t m_built = 0;
    std::optional<LargeGlow> m_large; // the last one
};

} // namespace haloric
