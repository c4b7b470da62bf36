// Paints one colour inside the intersection of a few regions, row by row: the pixels at edges are computed one by one,
// the runs between them are filled, and equal rows are prepared once. Main thread.
#pragma once

#include "drawing/raster/Blend.h"
#include "drawing/raster/CoverageFactor.h"
#include "drawing/raster/PixelBuffer.h"
#include "foundation/Color.h"

#include <vector>

namespace haloric {

class CoveragePainter {
public:
    static constexpr std::size_t kMaxFactors = 8;

    // `origin`: the view's pixel at the buffer's first one. A painter reuses its memory, so keep it.
    void setTarget(const PixelBuffer& buffer, int originX, int originY);

    // `area`: the view's pixels to paint, all of them in the buffer. The coverage is the product of the factors', of
    // which there are at most kMaxFactors.
    void paint(const PixelRect& area, std::span<const CoverageFactor> factors, const Color& color, PaintMode mode);

    // The view's pixel at x in row y.
    std::uint32_t* pixel(int x, int y) const { return m_buffer.row(y - m_originY) + (x - m_originX); }

private:
    struct Run {
        int begin = 0;
        int end = 0;
        Blend blend;          // of every pixel, if uniform
        int first = kUniform; // otherwise the index of the first pixel's own blend in m_sources and m_keeps
        bool writes = true;   // every blend overwrites
        static constexpr int kUniform = -1;
    };

    void prepareRow(const PixelRect& area, int row, std::span<const CoverageFactor> factors, const Color& color,
                    PaintMode mode);
    void addRun(int begin, int end, Blend blend);
    void addPixel(int column, Blend blend);
    void applyRow(int row) const;

    PixelBuffer m_buffer;
    int m_originX = 0;
    int m_originY = 0;
    std::vector<int> m_edges;
    std::vector<Run> m_runs;
    std::vector<std::uint32_t> m_sources;
    std::vector<std::uint32_t> m_keeps;
};

} // namespace haloric
