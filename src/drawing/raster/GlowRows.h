// The blurred rounded rectangle row by row, for some of its columns. A value does not depend on which columns are
// asked for, so that a part of a glow has the pixels of the whole.
#pragma once

#include "drawing/raster/GlowStrips.h"

#include <vector>

namespace haloric {

class GlowRows {
public:
    // How many rows lie between two that are computed; those between are interpolated. A power of two, at most a
    // sixteenth of the kernel's standard deviation, where a straight line errs by 0.03 of 255.
    static int stepOf(int margin);

    // `first` and `columns` are pixels of the strips' shape. The strips outlive it.
    GlowRows(const GlowStrips& strips, int margin, int first, int columns);

    // Values 0...1, the first being that of the first column. Valid until the next call.
    const float* row(int y);

private:
    struct Sample {
        int y = 0;
        std::vector<float> values; // empty: not computed yet
    };

    const std::vector<float>& sample(int y);
    void compute(int y, std::vector<float>& values);
    void add(const GlowStrips::Edge& edge, double share, std::vector<float>& values);

    const GlowStrips& m_strips;
    int m_step;
    int m_first;
    int m_columns;
    Sample m_samples[2];
    std::vector<double> m_steps; // what is added to a column and to all after it
    std::vector<float> m_between;
};

} // namespace haloric
