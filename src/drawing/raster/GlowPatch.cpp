#include "drawing/raster/GlowPatch.h"

#include "drawing/RowCoverage.h"
#include "drawing/raster/GlowRows.h"

#include <algorithm>

namespace haloric {

namespace {

constexpr int kUnit = DeviceShape::kUnit;
constexpr long kMaxPatchPixels = 2L << 20;

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

} // namespace

std::optional<GlowKey> GlowKey::of(const DeviceShape& shape, double blurRadius, const GlowColors& colors)
{
    GlowKey key = ofWhole(shape, blurRadius, colors);
    const int reach = GlowKernel::marginOf(blurRadius);
    const int apart = reach + GlowRows::stepOf(reach) - 1; // interpolated rows depend on those beside them
    key.shape.x1 = smallestEnd(key.shape.x0, key.shape.x1, shape.radius, apart);
    key.shape.y1 = smallestEnd(key.shape.y0, key.shape.y1, shape.radius, apart);
    const long pixels = static_cast<long>(pixelCeil(key.shape.x1) + 2 * reach) * (pixelCeil(key.shape.y1) + 2 * reach);
    return pixels > kMaxPatchPixels ? std::nullopt : std::optional(key);
}

GlowKey GlowKey::ofWhole(const DeviceShape& shape, double blurRadius, const GlowColors& colors)
{
    const int x = shape.x0 & (kUnit - 1);
    const int y = shape.y0 & (kUnit - 1);
    return {{x, y, x + shape.width(), y + shape.height(), shape.radius}, blurRadius, colors};
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
    GlowRows glow(strips, m_reach, -m_reach, columns);

    for (int y = 0; y < rows; ++y) {
        const float* blurred = glow.row(y - m_reach);
        const RowCoverage coverage(key.shape, y - m_reach);
        std::uint32_t* row = m_pixels.data() + index(y);
        for (int x = 0; x < columns; ++x)
            row[x] = key.colors.pixel(blurred[x], coverage.at(x - m_reach));
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
