// Rounding of single pixels.
#include "drawing/raster/Blend.h"

#include <cmath>
#include <vector>

namespace haloric {
namespace {

TEST(Blend, what_is_kept_of_a_pixel_is_rounded_to_nearest)
{
    for (std::uint32_t keep = 1; keep < 255; ++keep) {
        std::vector<std::uint32_t> row(256);
        for (std::uint32_t old = 0; old < 256; ++old)
            row[old] = inEachByte(old);
        blendPixels(row.data(), row.size(), {0, keep});
        for (std::uint32_t old = 0; old < 256; ++old)
            ASSERT_EQ(row[old], inEachByte(static_cast<std::uint32_t>(std::lround(old * keep / 255.0))))
                << old << " kept by " << keep;
    }
}

TEST(Blend, a_colours_components_are_rounded_to_nearest)
{
    for (std::uint32_t byte = 0; byte < 256; ++byte)
        for (const double off : {-0.49, 0.0, 0.49}) {
            const double component = (byte + off) / 255;
            EXPECT_EQ(premultiplied({component, component, component, 1}, 1),
                      0xff000000 | (inEachByte(byte) & 0xffffff));
            EXPECT_EQ(alphaOf(premultiplied({0, 0, 0, component}, 1)), byte);
        }
}

TEST(Blend, no_blend_exceeds_a_byte)
{
    for (const PaintMode mode : {PaintMode::over, PaintMode::write, PaintMode::erase, PaintMode::copy})
        for (int step = 0; step <= 1000; ++step)
            for (const double alpha : {0.0, 0.3, 0.5, 1.0}) {
                const Blend blend = blendOf({1, 1, 1, alpha}, step / 1000.0, mode);
                ASSERT_LE(alphaOf(blend.source) + blend.keep, 255U) << "at " << step << " of 1000";
            }
}

} // namespace
} // namespace haloric
