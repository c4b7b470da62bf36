// Paints one colour where every one of a few regions covers, in rows: the pixels that edges pass through are computed
// one by one, the runs between them are filled, and rows that are alike are prepared once. Main thread.
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

    // `origin`: which pixel of the view the buffer's first one is. Keep a painter: it pools its memory.
    void setTarget(const PixelBuffer& buffer, int originX, int originY);

    // `area`: the view's pixels to touch, all of them in the buffer. The coverage is the product of the factors'.
    // At most kMaxFactors of them.
    void paint(const PixelRect& area, std::span<const CoverageFactor> factors, const Color& color, PaintMode mode);

    // The view's pixel at x in row y.
    std::uint32_t* pixel(int x, int y) const { return m_buffer.row(y - m_originY) + (x - m_originX); }

private:
    struct Run {
        int begin = 0;
        int end = 0;
        Blend blend;          // for every pixel, unless
        int first = kUniform; // each has its own, from here on in m_sources and m_keeps
        bool writes = true;   // none of those keeps anything
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
