#include "drawing/raster/MaskBlur.h"

namespace haloric {

void MaskBlur::addScaled(float* sum, const float* values, float share) const
{
    for (std::size_t x = 0; x < width(); ++x)
        sum[x] += share * values[x];
}

void MaskBlur::blur(const PathMask& mask, const PixelRect& area, const GlowKernel& kernel)
{
    m_area = area;
    const std::vector<float>& taps = kernel.taps();
    const int reach = kernel.margin();
    const std::size_t rows = static_cast<std::size_t>(area.height) + 2 * static_cast<std::size_t>(reach);
    m_across.assign(width() * rows, 0);
    m_blurred.assign(width() * static_cast<std::size_t>(area.height), 0);

    std::vector<float> source(static_cast<std::size_t>(mask.area().width));
    const int left = area.x - mask.area().x;
    for (std::size_t i = 0; i < rows; ++i) {
        const std::uint8_t* bytes = mask.row(area.y - reach + static_cast<int>(i));
        for (std::size_t x = 0; x < source.size(); ++x)
            source[x] = static_cast<float>(bytes[x]) / 255;
        for (int tap = -reach; tap <= reach; ++tap)
            addScaled(m_across.data() + i * width(), source.data() + left + tap,
                      taps[static_cast<std::size_t>(std::abs(tap))]);
    }
    for (std::size_t i = 0; i < static_cast<std::size_t>(area.height); ++i)
        for (int tap = -reach; tap <= reach; ++tap)
            addScaled(m_blurred.data() + i * width(),
                      m_across.data() + (i + static_cast<std::size_t>(reach + tap)) * width(),
                      taps[static_cast<std::size_t>(std::abs(tap))]);
}

} // namespace haloric
