// The fast ways against the general one, by Cairo.
#include "support/PictureDifference.h"
#include "support/RasterScenes.h"

namespace haloric {
namespace {

// Cairo samples an edge on 15 rows a pixel, which moves a coverage by up to 1/30, 8.5 of 255; rounding adds 1.
constexpr int kCairoError = 10;

class RasterWaysAlike : public testing::TestWithParam<RasterScene> {};

TEST_P(RasterWaysAlike, fast_and_general_give_the_same_picture)
{
    const RasterScene& scene = GetParam();
    const auto difference = PictureDifference::of(scene.whole(RasterWays::fast), scene.whole(RasterWays::generalOnly));
    // Where layers lie over one another at a large scale, their errors add up.
    const int allowed = scene.scale > 2 ? kCairoError + 2 : kCairoError;
    EXPECT_LE(difference.largest, allowed) << "at " << difference.x << ", " << difference.y;
}

INSTANTIATE_TEST_SUITE_P(Scenes, RasterWaysAlike, testing::ValuesIn(RasterScenes::all()));
INSTANTIATE_TEST_SUITE_P(OtherScales, RasterWaysAlike, testing::ValuesIn(RasterScenes::otherScales()));

// Sampled 8 times as finely each way, Cairo errs by 1 of 255, and rounding takes half as much. Its circles are cubic
// curves, up to 0.0003 of the radius off: 0.012 of a pixel, 3 of 255, for the largest radius here, 41 pixels.
constexpr int kFineError = 4;
constexpr int kZoom = 8;

Picture zoomedOut(Picture large, const PixelRect& size)
{
    Picture small(size.width, size.height);
    for (int y = 0; y < size.height; ++y)
        for (int x = 0; x < size.width; ++x) {
            unsigned sums[4] = {};
            for (int i = 0; i < kZoom * kZoom; ++i) {
                const int row = std::min(y * kZoom + i / kZoom, large.height - 1);
                const int column = std::min(x * kZoom + i % kZoom, large.width - 1);
                for (unsigned part = 0; part < 4; ++part)
                    sums[part] += large.at(column, row) >> (8 * part) & 255;
            }
            for (unsigned part = 0; part < 4; ++part)
                small.buffer().row(y)[x] |= ((sums[part] + kZoom * kZoom / 2) / (kZoom * kZoom)) << (8 * part);
        }
    return small;
}

class RasterWaysExact : public testing::TestWithParam<RasterScene> {};

TEST_P(RasterWaysExact, coverage_is_what_a_far_finer_sampling_gives)
{
    const RasterScene& scene = GetParam();
    RasterScene zoomed = scene;
    zoomed.scale *= kZoom;
    const Picture reference = zoomedOut(zoomed.whole(RasterWays::generalOnly), scene.pixels());
    const auto difference = PictureDifference::of(scene.whole(), reference);
    EXPECT_LE(difference.largest, kFineError) << "at " << difference.x << ", " << difference.y;
}

INSTANTIATE_TEST_SUITE_P(Scenes, RasterWaysExact, testing::ValuesIn(RasterScenes::singleShapes()));

} // namespace
} // namespace haloric
