#include "drawing/raster/GlowStrips.h"

#include <algorithm>
#include <cmath>

namespace haloric {

namespace {

constexpr double kPixels = 1.0 / DeviceShape::kUnit;
constexpr int kMaxStrips = 8192; // for corners far larger than any screen

// A wide blur hides larger steps than a narrow one: an eighth of its standard deviation.
double wantedStripHeight(const GlowKernel& kernel) { return std::clamp(kernel.margin() / 32.0, 0.25, 16.0); }

std::size_t sharesOf(const GlowKernel& kernel) { return 2 * static_cast<std::size_t>(kernel.margin()) + 3; }

// The area between the arc of a corner and its square's top, from the top down to `depth`.
double areaBesideArc(double radius, double depth)
{
    const double leg = radius - depth;
    const double underArc = 0.5 * (leg * std::sqrt(std::max(0.0, radius * radius - leg * leg)) +
                                   radius * radius * std::asin(std::clamp(leg / radius, -1.0, 1.0)));
    return radius * depth - (radius * radius * std::asin(1.0) / 2 - underArc);
}

} // namespace

GlowStrips::GlowStrips(const DeviceShape& shape, const GlowKernel& kernel)
    : m_kernel(kernel),
      m_left(shape.x0 * kPixels),
      m_right(shape.x1 * kPixels),
      m_top(shape.y0 * kPixels),
      m_bottom(shape.y1 * kPixels)
{
    const double radius = shape.radius * kPixels;
    if (radius > 0) {
        const int strips = std::clamp(static_cast<int>(std::ceil(radius / wantedStripHeight(kernel))), 1, kMaxStrips);
        m_stripHeight = radius / strips;
        double above = 0;
        for (int i = 0; i < strips; ++i) {
            const double area = areaBesideArc(radius, (i + 1) * m_stripHeight);
            addEdges((area - above) / m_stripHeight);
            above = area;
        }
    }
    addEdges(0);
}

void GlowStrips::addEdges(double inset)
{
    for (const double edge : {m_left + inset, m_right - inset}) {
        const int first = static_cast<int>(std::floor(edge)) - m_kernel.margin() - 1;
        m_firstColumns.push_back(first);
        for (std::size_t i = 0; i < sharesOf(m_kernel); ++i)
            m_shares.push_back(m_kernel.cumulative(first + static_cast<double>(i) + 0.5 - edge));
    }
}

GlowStrips::Range GlowStrips::stripsNear(double depth) const
{
    if (m_stripHeight == 0)
        return {};
    const double reach = m_kernel.margin() + 1;
    const std::size_t last = m_firstColumns.size() / 2 - 1;
    const auto strips = static_cast<double>(last);
    const double begin = std::clamp(std::floor((depth - reach) / m_stripHeight), 0.0, strips);
    const double end = std::clamp(std::ceil((depth + reach) / m_stripHeight), 0.0, strips);
    return {static_cast<std::size_t>(begin), static_cast<std::size_t>(end)};
}

GlowStrips::Edge GlowStrips::edge(std::size_t strip, std::size_t side) const
{
    const std::size_t count = sharesOf(m_kernel);
    const std::size_t index = 2 * strip + side;
    return {m_firstColumns[index], count, m_shares.data() + index * count};
}

} // namespace haloric
