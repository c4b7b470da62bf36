#include "drawing/raster/GlowTiles.h"

#include <algorithm>
#include <array>

namespace haloric {

namespace {

// Puts rows of a patch, stretched by `extra` columns, into the view from column `left` on.
class PatchRows {
public:
    PatchRows(const CoveragePainter& target, const GlowPatch& patch, const PixelRect& area, int left, int extra,
              PaintMode mode)
        : m_target(target),
          m_patch(patch),
          m_area(area),
          m_left(left),
          m_extra(extra),
          m_mode(mode)
    {
    }

    // The same row is often put many times in succession.
    void put(int patchRow, int viewRow)
    {
        if (patchRow != m_row)
            cut(patchRow);
        for (std::size_t i = 0; i < m_count; ++i) {
            const Piece& piece = m_pieces[i];
            std::uint32_t* first = m_target.pixel(piece.begin, viewRow);
            if (!piece.source)
                blendPixels(first, piece.length, piece.repeated);
            else if (m_mode == PaintMode::write)
                copyPixels(first, piece.source, piece.length);
            else
                blendPixelsOver(first, piece.source, piece.length);
        }
    }

private:
    // Pixels of the patch, or one of them repeated.
    struct Piece {
        int begin = 0; // column of the view
        std::size_t length = 0;
        const std::uint32_t* source = nullptr;
        Blend repeated;
    };

    void cut(int patchRow)
    {
        m_row = patchRow;
        m_count = 0;
        const std::uint32_t* pixels = m_patch.row(patchRow);
        const GlowPatch::Extent extent = m_patch.extent(patchRow);
        const int middle = m_patch.middleColumn();
        add(m_left, m_left + extent.leftEnd, pixels, {});
        if (extent.leftEnd == extent.rightBegin) {
            const std::uint32_t pixel = pixels[middle];
            add(m_left + middle, m_left + middle + m_extra, nullptr,
                {pixel, m_mode == PaintMode::write ? 0 : 255 - alphaOf(pixel)});
        }
        add(m_left + m_extra + extent.rightBegin, m_left + m_extra + m_patch.width(), pixels + extent.rightBegin, {});
    }

    void add(int begin, int end, const std::uint32_t* source, Blend repeated)
    {
        const int from = std::max(begin, m_area.x);
        const int to = std::min(end, m_area.maxX());
        if (from < to)
            m_pieces[m_count++] = {from, static_cast<std::size_t>(to - from),
                                   source ? source + (from - begin) : nullptr, repeated};
    }

    const CoveragePainter& m_target;
    const GlowPatch& m_patch;
    PixelRect m_area;
    int m_left;
    int m_extra;
    PaintMode m_mode;
    int m_row = -1; // the row that m_pieces is made from
    std::array<Piece, 3> m_pieces;
    std::size_t m_count = 0;
};

} // namespace

const GlowPatch& GlowTiles::patchFor(const GlowKey& key)
{
    const auto found =
        std::find_if(m_patches.begin(), m_patches.end(), [&](const Kept& kept) { return kept.key == key; });
    if (found != m_patches.end()) {
        m_patches.splice(m_patches.begin(), m_patches, found);
    } else {
        m_patches.push_front({key, GlowPatch(key)});
        ++m_built;
        makeRoom();
    }
    return m_patches.front().patch;
}

void GlowTiles::makeRoom()
{
    std::size_t pixels = 0;
    for (const Kept& kept : m_patches)
        pixels += kept.patch.pixels();
    while (m_patches.size() > 1 && (m_patches.size() > kMaxPatches || pixels > kMaxPixels)) {
        pixels -= m_patches.back().patch.pixels();
        m_patches.pop_back();
    }
}

LargeGlow& GlowTiles::largeGlowFor(const GlowKey& key)
{
    return m_large && m_large->key() == key ? *m_large : m_large.emplace(key);
}

void GlowTiles::paint(const CoveragePainter& target, const PixelRect& area, const DeviceShape& shape, double blurRadius,
                      const GlowColors& colors, PaintMode mode)
{
    const std::optional<GlowKey> key = GlowKey::of(shape, blurRadius, colors);
    if (!key) {
        largeGlowFor(GlowKey::ofWhole(shape, blurRadius, colors))
            .paint(target, area, pixelFloor(shape.x0), pixelFloor(shape.y0), mode);
        return;
    }
    const GlowPatch& patch = patchFor(*key);
    const int extraColumns = (shape.width() + key->shape.x0 - key->shape.x1) / DeviceShape::kUnit;
    const int extraRows = (shape.height() + key->shape.y0 - key->shape.y1) / DeviceShape::kUnit;
    const int top = pixelFloor(shape.y0) + patch.offset();
    PatchRows rows(target, patch, area, pixelFloor(shape.x0) + patch.offset(), extraColumns, mode);
    const int end = std::min(area.maxY(), top + patch.height() + extraRows);
    for (int y = std::max(area.y, top); y < end; ++y) {
        const int down = y - top;
        const int beyondMiddle = std::max(patch.middleRow(), down - extraRows);
        rows.put(std::min(down, beyondMiddle), y);
    }
}

} // namespace haloric
