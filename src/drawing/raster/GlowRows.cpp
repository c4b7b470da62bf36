#include "drawing/raster/GlowRows.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace haloric {

namespace {

// Multiples of this unit add up exactly in a double, in any order.
constexpr double kShareUnits = 1 << 30;

double roundedShare(float share) { return std::nearbyint(static_cast<double>(share) * kShareUnits) / kShareUnits; }

} // namespace

int GlowRows::stepOf(int margin)
{
    return static_cast<int>(std::bit_floor(static_cast<unsigned>(std::max(margin / 32, 1))));
}

GlowRows::GlowRows(const GlowStrips& strips, int margin, int first, int columns)
    : m_strips(strips),
      m_step(stepOf(margin)),
      m_first(first),
      m_columns(columns)
{
}

const float* GlowRows::row(int y)
{
    const int above = y & ~(m_step - 1);
    const std::vector<float>& upper = sample(above);
    if (above == y)
        return upper.data();
    const std::vector<float>& lower = sample(above + m_step);
    const float part = static_cast<float>(y - above) / static_cast<float>(m_step);
    m_between.resize(upper.size());
    for (std::size_t x = 0; x < upper.size(); ++x)
        m_between[x] = upper[x] + part * (lower[x] - upper[x]);
    return m_between.data();
}

const std::vector<float>& GlowRows::sample(int y)
{
    Sample& kept = m_samples[static_cast<std::size_t>(y / m_step) % 2];
    if (kept.values.empty() || kept.y != y) {
        kept.y = y;
        compute(y, kept.values);
    }
    return kept.values;
}

void GlowRows::compute(int y, std::vector<float>& values)
{
    values.assign(static_cast<std::size_t>(m_columns), 0.0F);
    m_steps.assign(values.size(), 0.0);
    m_strips.forEachShare(y, [&](const GlowStrips::Edge& left, const GlowStrips::Edge& right, float share) {
        if (share == 0)
            return;
        const double rounded = roundedShare(share);
        add(left, rounded, values);
        add(right, -rounded, values);
    });
    double sum = 0;
    for (std::size_t x = 0; x < values.size(); ++x) {
        sum += m_steps[x];
        values[x] += static_cast<float>(sum);
    }
}

void GlowRows::add(const GlowStrips::Edge& edge, double share, std::vector<float>& values)
{
    const int end = m_first + m_columns;
    const int edgeEnd = edge.first + static_cast<int>(edge.count);
    const auto factor = static_cast<float>(share);
    const int from = std::max(edge.first, m_first);
    const int count = std::min(edgeEnd, end) - from;
    if (count > 0) {
        const float* shares = edge.shares + (from - edge.first);
        float* sums = values.data() + (from - m_first);
        for (int i = 0; i < count; ++i)
            sums[i] += factor * shares[i];
    }
    if (edgeEnd < end)
        m_steps[static_cast<std::size_t>(std::max(edgeEnd, m_first) - m_first)] += share;
}

} // namespace haloric
