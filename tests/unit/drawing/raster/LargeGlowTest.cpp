// A glow without a patch looks like the one from a patch, in the whole and in parts.
#include "drawing/raster/LargeGlow.h"

#include "drawing/raster/GlowTiles.h"
#include "drawing/raster/Picture.h"
#include "support/PictureDifference.h"

namespace haloric {
namespace {

constexpr int kPixel = DeviceShape::kUnit;
const GlowColors kColors{{0, 0.5, 1, 0.8}, {0, 0.5, 1, 1}};

struct LargeGlowCase {
    DeviceShape shape; // in units
    double blur;
};

void PrintTo(const LargeGlowCase& glow, std::ostream* out)
{
    *out << glow.shape.width() / kPixel << " by " << glow.shape.height() / kPixel << ", corner "
         << glow.shape.radius / kPixel << ", blur " << glow.blur;
}

class LargeGlowPicture : public testing::TestWithParam<LargeGlowCase> {
protected:
    static constexpr PixelRect kAll{0, 0, 500, 400};

    Picture picture{kAll.width, kAll.height};
    CoveragePainter painter;

    LargeGlowPicture() { painter.setTarget(picture.buffer(), 0, 0); }

    Picture painted(std::span<const PixelRect> parts, PaintMode mode)
    {
        const DeviceShape& shape = GetParam().shape;
        std::fill(picture.pixels.begin(), picture.pixels.end(), 0);
        LargeGlow glow(GlowKey::ofWhole(shape, GetParam().blur, kColors));
        for (const PixelRect& part : parts)
            glow.paint(painter, part, pixelFloor(shape.x0), pixelFloor(shape.y0), mode);
        return picture;
    }
};

TEST_P(LargeGlowPicture, is_that_of_a_patch)
{
    const Picture large = painted(std::array{kAll}, PaintMode::write);
    std::fill(picture.pixels.begin(), picture.pixels.end(), 0);
    GlowTiles().paint(painter, kAll, GetParam().shape, GetParam().blur, kColors, PaintMode::write);
    const auto difference = PictureDifference::of(large, picture);
    EXPECT_LE(difference.largest, 1) << "at " << difference.x << ", " << difference.y;
}

TEST_P(LargeGlowPicture, is_the_same_in_parts_and_over_nothing)
{
    const Picture whole = painted(std::array{kAll}, PaintMode::write);
    const std::array parts{PixelRect{0, 0, 137, 93}, PixelRect{137, 0, 363, 93}, PixelRect{0, 93, 300, 307},
                           PixelRect{300, 93, 200, 211}, PixelRect{300, 304, 200, 96}};
    EXPECT_EQ(PictureDifference::of(whole, painted(parts, PaintMode::write)).pixels, 0);
    EXPECT_EQ(PictureDifference::of(whole, painted(parts, PaintMode::over)).pixels, 0);
}

INSTANTIATE_TEST_SUITE_P(
    Glows, LargeGlowPicture,
    testing::Values(LargeGlowCase{{60 * kPixel, 50 * kPixel, 440 * kPixel, 350 * kPixel, 11 * kPixel}, 18},
                    LargeGlowCase{{60 * kPixel, 50 * kPixel, 440 * kPixel, 350 * kPixel, 150 * kPixel}, 18},
                    LargeGlowCase{{60 * kPixel + 77, 50 * kPixel + 13, 430 * kPixel, 350 * kPixel + 90, 60 * kPixel},
                                  40},
                    LargeGlowCase{{200 * kPixel, 150 * kPixel, 320 * kPixel, 250 * kPixel, 50 * kPixel}, 150},
                    LargeGlowCase{{240 * kPixel, 190 * kPixel, 260 * kPixel, 215 * kPixel, 0}, 300},
                    LargeGlowCase{{100 * kPixel, 100 * kPixel, 400 * kPixel, 300 * kPixel, 5 * kPixel}, 1}));

} // namespace
} // namespace haloric
