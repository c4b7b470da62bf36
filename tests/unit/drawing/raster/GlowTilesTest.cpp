#include "drawing/raster/GlowTiles.h"

#include "drawing/raster/Picture.h"

namespace haloric {
namespace {

constexpr int kUnit = DeviceShape::kUnit;
const Color kBlue{0, 0, 1, 0.8};

struct GlowTilesDrawing : testing::Test {
    Picture picture{400, 300};
    CoveragePainter painter;
    GlowTiles glows;

    GlowTilesDrawing() { painter.setTarget(picture.buffer(), 0, 0); }

    void paint(int x, int y, int width, int height, double blur = 12)
    {
        glows.paint(painter, {0, 0, 400, 300},
                    {x * kUnit, y * kUnit, (x + width) * kUnit, (y + height) * kUnit, 6 * kUnit}, blur, {kBlue, kBlue},
                    PaintMode::over);
    }
};

TEST_F(GlowTilesDrawing, a_window_that_moves_or_changes_its_size_needs_no_new_patch)
{
    paint(50, 50, 200, 150);
    paint(60, 70, 200, 150);
    paint(60, 70, 120, 80);
    EXPECT_EQ(glows.patchesBuilt(), 1u);
}

TEST_F(GlowTilesDrawing, the_last_few_patches_are_kept)
{
    for (int i = 0; i < 20; ++i)
        paint(50, 50, 200, 150, 4 + i);
    EXPECT_EQ(glows.patches(), GlowTiles::kMaxPatches);
    EXPECT_EQ(glows.patchesBuilt(), 20u);
    paint(50, 50, 200, 150, 23);
    paint(50, 50, 200, 150, 16);
    EXPECT_EQ(glows.patchesBuilt(), 20u);
    paint(50, 50, 200, 150, 15);
    EXPECT_EQ(glows.patchesBuilt(), 21u);
}

TEST_F(GlowTilesDrawing, what_was_drawn_last_is_kept_longest)
{
    paint(50, 50, 200, 150, 4);
    for (std::size_t i = 1; i < GlowTiles::kMaxPatches; ++i) {
        paint(50, 50, 200, 150, 4 + static_cast<double>(i));
        paint(50, 50, 200, 150, 4);
    }
    paint(50, 50, 200, 150, 40); // removes the oldest
    const std::size_t built = glows.patchesBuilt();
    paint(50, 50, 200, 150, 4);
    EXPECT_EQ(glows.patchesBuilt(), built);
}

TEST_F(GlowTilesDrawing, patches_together_stay_below_a_size)
{
    for (int i = 0; i < 4; ++i)
        paint(0, 0, 4000, 4000, 300 + i); // 1.5 million pixels each
    EXPECT_EQ(glows.patches(), 2u);
}

TEST_F(GlowTilesDrawing, a_glow_as_large_as_a_screen_is_drawn_without_a_patch)
{
    const DeviceShape shape{0, 0, 5000 * kUnit, 4000 * kUnit, 2000 * kUnit};
    glows.paint(painter, {0, 0, 400, 300}, shape, 20, {kBlue, kBlue}, PaintMode::over);
    EXPECT_EQ(glows.patches(), 0u);
    EXPECT_EQ(alphaOf(picture.at(0, 0)), 0u) << "the corner is far from the arc";
    painter.setTarget(picture.buffer(), 1900, -10);
    glows.paint(painter, {1900, -10, 400, 300}, shape, 20, {kBlue, kBlue}, PaintMode::over);
    EXPECT_NE(alphaOf(picture.at(200, 9)), 0u);
    EXPECT_EQ(alphaOf(picture.at(200, 12)), 0u) << "inside";
    EXPECT_EQ(glows.patches(), 0u);
}

TEST_F(GlowTilesDrawing, the_inside_of_the_window_is_left_alone)
{
    paint(50, 50, 200, 150);
    for (int y = 57; y < 193; ++y)
        for (int x = 50; x < 250; ++x)
            ASSERT_EQ(picture.at(x, y), 0u);
    EXPECT_NE(picture.at(49, 100), 0u);
    EXPECT_NE(picture.at(250, 100), 0u);
    EXPECT_NE(picture.at(150, 49), 0u);
    EXPECT_NE(picture.at(150, 200), 0u);
}

TEST_F(GlowTilesDrawing, a_centred_glow_is_symmetrical)
{
    paint(100, 100, 200, 100);
    for (int y = 0; y < 300; ++y)
        for (int x = 0; x < 400; ++x) {
            ASSERT_EQ(picture.at(x, y), picture.at(399 - x, y));
            ASSERT_EQ(picture.at(x, y), picture.at(x, 299 - y));
        }
}

TEST_F(GlowTilesDrawing, the_glow_falls_off_outward_and_ends_at_the_blur_radius)
{
    paint(100, 100, 200, 100);
    for (int x = 300; x < 313; ++x)
        ASSERT_GT(alphaOf(picture.at(x - 1, 150)) + (x == 300 ? 255 : 0), alphaOf(picture.at(x, 150)));
    EXPECT_NE(picture.at(311, 150), 0u);
    EXPECT_EQ(picture.at(312, 150), 0u);
}

} // namespace
} // namespace haloric
