#include "drawing/raster/LargeGlow.h"

#include "drawing/RowCoverage.h"
#include "drawing/raster/GlowRows.h"

#include <algorithm>
#include <cmath>

namespace haloric {

namespace {

constexpr int kShades = 4096; // 16 to each value of a byte

} // namespace

LargeGlow::LargeGlow(const GlowKey& key) : m_key(key), m_kernel(key.blurRadius), m_strips(key.shape, m_kernel)
{
    m_outside.reserve(kShades + 1);
    for (int shade = 0; shade <= kShades; ++shade)
        m_outside.push_back(key.colors.pixel(static_cast<float>(shade) / kShades, 0));
}

std::uint32_t LargeGlow::outside(float blurred) const
{
    const long shade = std::lround(blurred * kShades);
    return m_outside[static_cast<std::size_t>(std::clamp(shade, 0L, static_cast<long>(kShades)))];
}

void LargeGlow::paint(const CoveragePainter& target, const PixelRect& area, int left, int top, PaintMode mode)
{
    const int reach = m_kernel.margin();
    const PixelRect part = intersection(area, {left - reach, top - reach, pixelCeil(m_key.shape.x1) + 2 * reach,
                                               pixelCeil(m_key.shape.y1) + 2 * reach});
    if (part.empty())
        return;
    const int first = part.x - left;
    const int end = first + part.width;
    GlowRows rows(m_strips, reach, first, part.width);
    m_row.resize(static_cast<std::size_t>(part.width));
    for (int y = part.y; y < part.maxY(); ++y) {
        const RowCoverage coverage(m_key.shape, y - top);
        const bool hasInside = coverage.inner() >= 1;
        const int insideBegin = hasInside ? std::clamp(coverage.fullBegin(), first, end) : end;
        const int insideEnd = hasInside ? std::clamp(coverage.fullEnd(), first, end) : end;
        if (insideBegin == first && insideEnd == end)
            continue;
        const float* blurred = rows.row(y - top);
        const auto paintRun = [&](int from, int to) {
            for (int x = from; x < to; ++x) {
                const bool covered = x >= coverage.begin() && x < coverage.end();
                m_row[static_cast<std::size_t>(x - from)] =
                    covered ? m_key.colors.pixel(blurred[x - first], coverage.at(x)) : outside(blurred[x - first]);
            }
            const auto count = static_cast<std::size_t>(to - from);
            if (mode == PaintMode::write)
                copyPixels(target.pixel(left + from, y), m_row.data(), count);
            else
                blendPixelsOver(target.pixel(left + from, y), m_row.data(), count);
        };
        if (insideBegin > first)
            paintRun(first, insideBegin);
        if (insideEnd < end)
            paintRun(insideEnd, end);
    }
}

} // namespace haloric
