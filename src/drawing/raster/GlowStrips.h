// A rounded rectangle as a stack of strips, blurred across: where each strip's left and right edge rise from 0 to 1,
// and each strip's share in the rows above, beside and below it. Immutable; the kernel outlives it.
#pragma once

#include "drawing/DeviceShape.h"
#include "drawing/GlowKernel.h"

#include <cstddef>
#include <vector>

namespace haloric {

class GlowStrips {
public:
    // A blurred vertical edge: 0 to the left of `first`, then `count` shares in (0, 1), then 1. Columns are pixels of
    // the shape's space.
    struct Edge {
        int first = 0;
        std::size_t count = 0;
        const float* shares = nullptr;
    };

    // Each strip at the upper corners has a twin of the same width at the lower ones; the last strip is the middle.
    GlowStrips(const DeviceShape& shape, const GlowKernel& kernel);

    // Calls visit(left edge, right edge, share) for each strip with a share in the row.
    template <class Visit>
    void forEachShare(int row, Visit visit) const
    {
        const double centre = row + 0.5;
        const std::size_t middle = m_firstColumns.size() / 2 - 1;
        const auto [upperBegin, upperEnd] = stripsNear(centre - m_top);
        for (std::size_t strip = upperBegin; strip < upperEnd; ++strip)
            visit(edge(strip, 0), edge(strip, 1), between(centre, upperEdge(strip), upperEdge(strip + 1)));
        const auto [lowerBegin, lowerEnd] = stripsNear(m_bottom - centre);
        for (std::size_t strip = lowerBegin; strip < lowerEnd; ++strip)
            visit(edge(strip, 0), edge(strip, 1), between(centre, lowerEdge(strip + 1), lowerEdge(strip)));
        visit(edge(middle, 0), edge(middle, 1), between(centre, upperEdge(middle), lowerEdge(middle)));
    }

private:
    struct Range {
        std::size_t begin = 0;
        std::size_t end = 0;
    };

    void addEdges(double inset);
    Range stripsNear(double depth) const; // of the corners, near the row at this depth below or above the shape's edge
    Edge edge(std::size_t strip, std::size_t side) const;
    double upperEdge(std::size_t strip) const { return m_top + static_cast<double>(strip) * m_stripHeight; }
    double lowerEdge(std::size_t strip) const { return m_bottom - static_cast<double>(strip) * m_stripHeight; }
    float between(double centre, double top, double bottom) const
    {
        return m_kernel.cumulative(centre - top) - m_kernel.cumulative(centre - bottom);
    }

    const GlowKernel& m_kernel;
    double m_left; // pixels
    double m_right;
    double m_top;
    double m_bottom;
    double m_stripHeight = 0;        // of all but the middle
    std::vector<int> m_firstColumns; // left and right, by strip
    std::vector<float> m_shares;     // left and right, by strip
};

} // namespace haloric
