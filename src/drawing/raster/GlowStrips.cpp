#include "drawing/raster/GlowStrips.h"

#include <algorithm>
#include <cmath>

namespace haloric {

namespace {

constexpr double kPixels = 1.0 / DeviceShape::kUnit;

// A wide blur hides larger steps than a narrow one.
double wantedStripHeight(const GlowKernel& kernel) { return std::clamp(kernel.margin() / 32.0, 0.25, 1.0); }

// The area between the arc of a corner and its square's top, from the top down to `depth`.
double areaBesideArc(double radius, double depth)
{
    const double leg = radius - depth;
    const double underArc = 0.5 * (leg * std::sqrt(std::max(0.0, radius * radius - leg * leg)) +
                                   radius * radius * std::asin(std::clamp(leg / radius, -1.0, 1.0)));
    return radius * depth - (radius * radius * std::asin(1.0) / 2 - underArc);
}

} // namespace

GlowStrips::GlowStrips(const DeviceShape& shape, const GlowKernel& kernel) : m_shape(shape), m_kernel(kernel)
{
    const double radius = shape.radius * kPixels;
    if (radius > 0) {
        const int strips = std::max(1, static_cast<int>(std::ceil(radius / wantedStripHeight(kernel))));
        m_stripHeight = radius / strips;
        for (int i = 0; i < strips; ++i) {
            const double area =
                areaBesideArc(radius, (i + 1) * m_stripHeight) - areaBesideArc(radius, i * m_stripHeight);
            m_inset.push_back(area / m_stripHeight);
        }
    }
    m_inset.push_back(0);
}

std::vector<float> GlowStrips::acrossColumns(int first, int columns) const
{
    std::vector<float> shares;
    shares.reserve(count() * static_cast<std::size_t>(columns));
    for (const double inset : m_inset) {
        const double left = m_shape.x0 * kPixels + inset;
        const double right = m_shape.x1 * kPixels - inset;
        for (int column = first; column < first + columns; ++column)
            shares.push_back(m_kernel.cumulative(column + 0.5 - left) - m_kernel.cumulative(column + 0.5 - right));
    }
    return shares;
}

float GlowStrips::downRow(std::size_t strip, int row) const
{
    const double centre = row + 0.5;
    const auto between = [&](double top, double bottom) {
        return m_kernel.cumulative(centre - top) - m_kernel.cumulative(centre - bottom);
    };
    const double top = m_shape.y0 * kPixels;
    const double bottom = m_shape.y1 * kPixels;
    if (strip + 1 == count())
        return between(top + m_shape.radius * kPixels, bottom - m_shape.radius * kPixels);
    const double from = static_cast<double>(strip) * m_stripHeight;
    const double to = from + m_stripHeight;
    return between(top + from, top + to) + between(bottom - to, bottom - from);
}

} // namespace haloric
