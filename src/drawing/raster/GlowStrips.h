// A rounded rectangle as a stack of strips, and each strip's share in the kernel around any row or column.
#pragma once

#include "drawing/DeviceShape.h"
#include "drawing/GlowKernel.h"

#include <vector>

namespace haloric {

class GlowStrips {
public:
    // Each strip at the upper corners has a twin of the same width at the lower ones; the last strip is the middle.
    GlowStrips(const DeviceShape& shape, const GlowKernel& kernel);

    std::size_t count() const { return m_inset.size(); }

    // For the centres of `columns` pixels from `first` on: by strip, then by column.
    std::vector<float> acrossColumns(int first, int columns) const;

    // The share of one strip and its twin in the row's kernel.
    float downRow(std::size_t strip, int row) const;

private:
    DeviceShape m_shape;
    const GlowKernel& m_kernel;
    double m_stripHeight = 0;    // pixels; of all but the last
    std::vector<double> m_inset; // pixels from the shape's sides to the strip's
};

} // namespace haloric
