#include "drawing/raster/GlowPatch.h"

#include "drawing/RowCoverage.h"
#include "drawing/raster/Blend.h"
#include "drawing/raster/GlowStrips.h"

#include <algorithm>
#include <cmath>

namespace haloric {

namespace {

constexpr int kUnit = DeviceShape::kUnit;
constexpr long kMaxPatchPixels = 8L << 20;

// The end, in units, of the smallest side that can replace a side from `begin`, in pixel 0, to `end`: long enough that
// the middle pixel and its two neighbours are affected by neither corner. A shorter side is not replaced.
int smallestEnd(int begin, int end, int radius, int reach)
{
    const int afterCorner = pixelCeil(begin + radius) + reach;
    const int lastPart = end & (kUnit - 1);
    const int beforeCorner = pixelCeil(radius) + 1 + reach;
    return std::min(end, (afterCorner + 3 + beforeCorner) * kUnit + lastPart);
}

// Whether a pattern between these ends reads the same from both sides.
bool isSymmetrical(int begin, int end) { return ((begin + end) & (kUnit - 1)) == 0; }

// The glow's pixel where the rectangle covers `coverage` of it: the shadow and over it the rectangle itself, both
// clipped to the outside. Rounded once.
std::uint32_t glowPixel(const GlowKey& key, float blurred, float coverage)
{
    const double open = 1 - static_cast<double>(coverage);
    if (open <= 0)
        return 0;
    const double fill = std::clamp(key.fillColor.alpha, 0.0, 1.0) * static_cast<double>(coverage) * open;
    const double shadow = std::clamp(key.shadowColor.alpha, 0.0, 1.0) * std::clamp(key.fillColor.alpha, 0.0, 1.0) *
                          static_cast<double>(blurred) * open * (1 - fill);
    const double alpha = fill + shadow;
    if (!(alpha > 0))
        return 0;
    const double fillPart = fill / alpha;
    const auto mixed = [&](double fillComponent, double shadowComponent) {
        return fillPart * fillComponent + (1 - fillPart) * shadowComponent;
    };
    return premultiplied({mixed(key.fillColor.red, key.shadowColor.red),
                          mixed(key.fillColor.green, key.shadowColor.green),
                          mixed(key.fillColor.blue, key.shadowColor.blue), alpha},
                         1);
}

} // namespace

std::optional<GlowKey> GlowKey::of(const DeviceShape& shape, double blurRadius, const Color& shadowColor,
                                   const Color& fillColor)
{
    const int reach = GlowKernel::marginOf(blurRadius);
    const int x = shape.x0 & (kUnit - 1);
    const int y = shape.y0 & (kUnit - 1);
    const int right = smallestEnd(x, x + shape.width(), shape.radius, reach);
    const int bottom = smallestEnd(y, y + shape.height(), shape.radius, reach);
    const long pixels = static_cast<long>(pixelCeil(right) + 2 * reach) * (pixelCeil(bottom) + 2 * reach);
    if (pixels > kMaxPatchPixels)
        return std::nullopt;
    return GlowKey{{x, y, right, bottom, shape.radius}, blurRadius, shadowColor, fillColor};
}

GlowPatch::GlowPatch(const GlowKey& key)
    : m_reach(GlowKernel::marginOf(key.blurRadius)),
      m_width(pixelCeil(key.shape.x1) + 2 * m_reach),
      m_height(pixelCeil(key.shape.y1) + 2 * m_reach),
      m_pixels(index(m_height)),
      m_extents(static_cast<std::size_t>(m_height))
{
    compute(key);
    findExtents();
}

void GlowPatch::compute(const GlowKey& key)
{
    const GlowKernel kernel(key.blurRadius);
    const GlowStrips strips(key.shape, kernel);
    const bool mirrorsColumns = isSymmetrical(key.shape.x0, key.shape.x1);
    const bool mirrorsRows = isSymmetrical(key.shape.y0, key.shape.y1);
    const int columns = mirrorsColumns ? (m_width + 1) / 2 : m_width;
    const int rows = mirrorsRows ? (m_height + 1) / 2 : m_height;
    const std::vector<float> across = strips.acrossColumns(-m_reach, columns);
    std::vector<float> blurred(static_cast<std::size_t>(columns));

    for (int y = 0; y < rows; ++y) {
        std::fill(blurred.begin(), blurred.end(), 0.0F);
        for (std::size_t strip = 0; strip < strips.count(); ++strip) {
            const float share = strips.downRow(strip, y - m_reach);
            if (share == 0)
                continue;
            const float* sides = across.data() + strip * blurred.size();
            for (std::size_t x = 0; x < blurred.size(); ++x)
                blurred[x] += share * sides[x];
        }
        const RowCoverage coverage(key.shape, y - m_reach);
        std::uint32_t* row = m_pixels.data() + index(y);
        for (int x = 0; x < columns; ++x)
            row[x] = glowPixel(key, blurred[static_cast<std::size_t>(x)], coverage.at(x - m_reach));
        if (mirrorsColumns)
            std::reverse_copy(row, row + m_width / 2, row + columns);
    }
    if (mirrorsRows)
        for (int y = rows; y < m_height; ++y)
            std::copy_n(row(m_height - 1 - y), m_width, m_pixels.data() + index(y));
}

void GlowPatch::findExtents()
{
    for (int y = 0; y < m_height; ++y) {
        const std::uint32_t* pixels = row(y);
        Extent& extent = m_extents[static_cast<std::size_t>(y)];
        extent = {middleColumn(), middleColumn()};
        while (extent.leftEnd > 0 && pixels[extent.leftEnd - 1] == 0)
            --extent.leftEnd;
        while (extent.rightBegin < m_width && pixels[extent.rightBegin] == 0)
            ++extent.rightBegin;
    }
}

} // namespace haloric
