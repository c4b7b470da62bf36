#include "support/GlowReference.h"

#include <algorithm>
#include <cmath>

namespace haloric {

namespace {

constexpr int kSlices = 128; // of a row of pixels

} // namespace

GlowReference::GlowReference(int width, int height, double x0, double y0, double x1, double y1, double radius,
                             double blurRadius)
    : m_width(width),
      m_height(height),
      m_mask(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)),
      m_blurred(m_mask.size())
{
    for (int row = 0; row < height; ++row) {
        for (int slice = 0; slice < kSlices; ++slice) {
            const double top = std::max(y0, row + slice * 1.0 / kSlices);
            const double bottom = std::min(y1, row + (slice + 1.0) / kSlices);
            if (bottom <= top)
                continue;
            const double y = (top + bottom) / 2;
            const double leg = std::max(0.0, radius - std::min(y - y0, y1 - y));
            const double inset = radius - std::sqrt(radius * radius - leg * leg);
            addSpan(row, x0 + inset, x1 - inset, bottom - top);
        }
    }
    blur(blurRadius);
}

void GlowReference::addSpan(int row, double left, double right, double share)
{
    for (int x = std::max(0, static_cast<int>(left)); x < m_width && x < right; ++x)
        m_mask[index(x, row)] += share * std::clamp(std::min(right, x + 1.0) - std::max(left, x + 0.0), 0.0, 1.0);
}

void GlowReference::blur(double blurRadius)
{
    const int reach = static_cast<int>(blurRadius);
    const double sigma = blurRadius / 2;
    std::vector<double> shares; // by distance
    double sum = 0;
    for (int i = 0; i <= reach; ++i)
        sum += shares.emplace_back(std::exp(-i * i / (2 * sigma * sigma))) * (i == 0 ? 1 : 2);
    const auto share = [&](int distance) { return shares[static_cast<std::size_t>(std::abs(distance))] / sum; };

    std::vector<double> across(m_mask.size());
    for (int y = 0; y < m_height; ++y)
        for (int x = 0; x < m_width; ++x)
            for (int i = -reach; i <= reach; ++i)
                if (x + i >= 0 && x + i < m_width)
                    across[index(x, y)] += share(i) * m_mask[index(x + i, y)];
    for (int y = 0; y < m_height; ++y)
        for (int i = -reach; i <= reach; ++i)
            if (y + i >= 0 && y + i < m_height)
                for (int x = 0; x < m_width; ++x)
                    m_blurred[index(x, y)] += share(i) * across[index(x, y + i)];
}

double GlowReference::alpha(int x, int y) const
{
    const double open = 1 - coverage(x, y);
    const double edge =
        coverage(x, y) * open; // the part of the rectangle that is visible through the clip's smooth edge
    return edge + m_blurred[index(x, y)] * open * (1 - edge);
}

} // namespace haloric
