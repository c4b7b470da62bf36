#include "drawing/raster/RasterCanvas.h"

#include "drawing/raster/Picture.h"

namespace haloric {
namespace {

const Color kRed{1, 0, 0, 1};
const Color kHalfBlue{0, 0, 1, 0.5};
constexpr std::uint32_t kRedPixel = 0xffff0000;
constexpr std::uint32_t kHalfBluePixel = 0x80000080;
const Rect kAll{0, 0, 20, 10};

struct RasterCanvasDrawing : testing::Test {
    Picture picture{20, 10};
    RasterResources resources;
    RasterCanvas canvas{resources, picture.buffer(), {1, {20, 10}, 0, 0}, RasterContents::transparent};

    int painted() const
    {
        return static_cast<int>(std::count_if(picture.pixels.begin(), picture.pixels.end(),
                                              [](std::uint32_t pixel) { return pixel != 0; }));
    }
};

TEST_F(RasterCanvasDrawing, a_rectangle_is_painted_with_y_upward)
{
    canvas.fillRect({2, 1, 3, 4}, kRed, CompositingOperation::sourceOver);
    EXPECT_EQ(painted(), 12);
    EXPECT_EQ(picture.at(2, 5), kRedPixel);
    EXPECT_EQ(picture.at(4, 8), kRedPixel);
    EXPECT_EQ(picture.at(4, 9), 0u);
}

TEST_F(RasterCanvasDrawing, pixels_are_premultiplied_and_what_lies_over_darkens)
{
    canvas.fill(Path::rect(kAll), kHalfBlue, FillRule::nonZero);
    EXPECT_EQ(picture.at(0, 0), kHalfBluePixel);
    canvas.fill(Path::rect(kAll), kHalfBlue, FillRule::nonZero);
    EXPECT_EQ(picture.at(0, 0), 0xc00000c0);
}

TEST_F(RasterCanvasDrawing, copying_replaces_what_was_there)
{
    canvas.fillRect(kAll, kRed, CompositingOperation::sourceOver);
    canvas.fillRect({0, 0, 5, 10}, kHalfBlue, CompositingOperation::copy);
    canvas.fillRect({5, 0, 0.5, 10}, {0, 0, 0, 0}, CompositingOperation::copy);
    EXPECT_EQ(picture.at(4, 4), kHalfBluePixel);
    EXPECT_EQ(picture.at(5, 4), 0x80800000);
    EXPECT_EQ(picture.at(6, 4), kRedPixel);
}

TEST_F(RasterCanvasDrawing, copying_over_part_of_an_opaque_pixel_keeps_it_opaque)
{
    const Color white{1, 1, 1, 1};
    for (int part = 0; part <= 256; ++part) {
        canvas.fillRect(kAll, white, CompositingOperation::sourceOver);
        canvas.fillRect({5, 0, part / 256.0, 10}, white, CompositingOperation::copy);
        EXPECT_EQ(picture.at(5, 4), 0xffffffff) << part << "/256 of a pixel";
    }
}

TEST_F(RasterCanvasDrawing, the_clear_mode_erases_and_normal_paints_again)
{
    canvas.fill(Path::rect(kAll), kRed, FillRule::nonZero);
    canvas.setBlendMode(BlendMode::clear);
    canvas.fill(Path::rect({0, 0, 10, 10}), kHalfBlue, FillRule::nonZero);
    canvas.setBlendMode(BlendMode::normal);
    canvas.fill(Path::rect({0, 0, 1, 10}), kHalfBlue, FillRule::nonZero);
    EXPECT_EQ(picture.at(0, 0), kHalfBluePixel);
    EXPECT_EQ(picture.at(1, 0), 0u);
    EXPECT_EQ(picture.at(10, 0), kRedPixel);
}

TEST_F(RasterCanvasDrawing, erasing_first_paints_nothing)
{
    canvas.setBlendMode(BlendMode::clear);
    canvas.fill(Path::rect(kAll), kRed, FillRule::nonZero);
    EXPECT_EQ(painted(), 0);
}

TEST_F(RasterCanvasDrawing, clips_add_up_and_end_with_their_save)
{
    canvas.save();
    canvas.clip(Path::rect({0, 0, 10, 10}), FillRule::nonZero);
    canvas.save();
    canvas.clip(Path::rect({5, 0, 15, 10}), FillRule::nonZero);
    canvas.fillRect(kAll, kRed, CompositingOperation::sourceOver);
    EXPECT_EQ(painted(), 50);
    canvas.restore();
    canvas.fillRect(kAll, kRed, CompositingOperation::sourceOver);
    EXPECT_EQ(painted(), 100);
    canvas.restore();
    canvas.fillRect(kAll, kRed, CompositingOperation::sourceOver);
    EXPECT_EQ(painted(), 200);
}

TEST_F(RasterCanvasDrawing, more_clips_than_the_fast_way_takes_still_clip)
{
    for (int i = 1; i <= 9; ++i)
        canvas.clip(Path::rect({static_cast<double>(i), 0, 20, 10}), FillRule::nonZero);
    canvas.fillRect(kAll, kRed, CompositingOperation::sourceOver);
    EXPECT_EQ(painted(), 110);
}

TEST_F(RasterCanvasDrawing, a_restore_without_a_save_changes_nothing)
{
    canvas.clip(Path::rect({0, 0, 10, 10}), FillRule::nonZero);
    canvas.restore();
    canvas.fillRect(kAll, kRed, CompositingOperation::sourceOver);
    EXPECT_EQ(painted(), 100);
}

TEST_F(RasterCanvasDrawing, the_even_odd_rule_leaves_out_what_is_covered_twice)
{
    canvas.fill(Path::rect({0, 0, 10, 10}).add(Rect{4, 2, 4, 4}), kRed, FillRule::evenOdd);
    EXPECT_EQ(painted(), 100 - 16);
    canvas.fill(Path::rect({0, 0, 10, 10}).add(Rect{4, 2, 4, 4}), kRed, FillRule::nonZero);
    EXPECT_EQ(painted(), 100);
}

TEST_F(RasterCanvasDrawing, shapes_that_cross_take_the_general_way)
{
    const Path crossing = Path::rect({0, 0, 10, 10}).add(Rect{5, 5, 10, 5});
    canvas.fill(crossing, kRed, FillRule::evenOdd);
    EXPECT_EQ(painted(), 100);
    canvas.fill(crossing, kRed, FillRule::nonZero);
    EXPECT_EQ(painted(), 125);
}

TEST_F(RasterCanvasDrawing, strokes_that_cross_are_one_shape)
{
    canvas.stroke(Path::rect({2, 2, 10, 6}).add(Rect{6, 2, 10, 6}), kHalfBlue, 2);
    EXPECT_EQ(picture.at(6, 2), kHalfBluePixel); // both pass here
    EXPECT_EQ(picture.at(2, 2), kHalfBluePixel);
}

TEST_F(RasterCanvasDrawing, a_shadow_falls_beneath_and_beside_what_is_filled)
{
    canvas.setShadow({0, {5, 2}, kHalfBlue});
    canvas.fill(Path::rect({2, 2, 4, 4}), kRed, FillRule::nonZero);
    EXPECT_EQ(picture.at(2, 7), kRedPixel);
    EXPECT_EQ(picture.at(7, 5), kHalfBluePixel);
    EXPECT_EQ(picture.at(10, 2), kHalfBluePixel);
    EXPECT_EQ(picture.at(11, 2), 0u);
    EXPECT_EQ(painted(), 32);
}

TEST_F(RasterCanvasDrawing, a_shadow_ends_with_its_save)
{
    canvas.save();
    canvas.setShadow({4, {0, 0}, kHalfBlue});
    canvas.restore();
    canvas.stroke(Path::rect({5, 3, 4, 4}), kRed, 2);
    EXPECT_EQ(painted(), 36 - 4);
}

TEST_F(RasterCanvasDrawing, strokes_cast_shadows_as_fills_do)
{
    canvas.setShadow({4, {0, 0}, kHalfBlue});
    canvas.stroke(Path::rect({8, 3, 4, 4}), kRed, 2);
    EXPECT_GT(painted(), 36);
    EXPECT_EQ(picture.at(7, 6), kRedPixel);
}

TEST_F(RasterCanvasDrawing, the_operation_in_force_is_source_over)
{
    EXPECT_EQ(canvas.compositingOperation(), CompositingOperation::sourceOver);
}

TEST(RasterCanvas, a_buffer_larger_than_the_view_is_cleared_and_left_so)
{
    Picture picture(20, 10);
    std::fill(picture.pixels.begin(), picture.pixels.end(), kRedPixel);
    RasterResources resources;
    RasterCanvas canvas(resources, picture.buffer(), {1, {15, 10}, 0, 0}, RasterContents::cleared);
    canvas.fillRect({-5, -5, 50, 50}, kHalfBlue, CompositingOperation::sourceOver);
    EXPECT_EQ(picture.at(14, 5), kHalfBluePixel);
    EXPECT_EQ(picture.at(15, 5), 0u);
}

TEST(RasterCanvas, rows_may_be_longer_than_the_picture)
{
    Picture picture(20, 10);
    PixelBuffer narrow = picture.buffer();
    narrow.width = 7;
    RasterResources resources;
    RasterCanvas canvas(resources, narrow, {1, {7, 10}, 0, 0}, RasterContents::cleared);
    canvas.fillRect({0, 0, 7, 10}, kRed, CompositingOperation::sourceOver);
    EXPECT_EQ(picture.at(6, 9), kRedPixel);
    EXPECT_EQ(picture.at(7, 5), 0u);
}

TEST(RasterCanvas, nothing_is_drawn_outside_of_the_damage)
{
    Picture picture(20, 10);
    RasterResources resources;
    RasterCanvas canvas(resources, picture.buffer(), {1, {20, 10}, 0, 0}, RasterContents::kept,
                        std::vector<PixelRect>{{2, 2, 3, 3}, {3, 3, 3, 3}, {18, 8, 9, 9}});
    canvas.fillRect(kAll, kHalfBlue, CompositingOperation::sourceOver);
    EXPECT_EQ(picture.at(3, 3), kHalfBluePixel); // once, though damaged twice
    EXPECT_EQ(std::count(picture.pixels.begin(), picture.pixels.end(), kHalfBluePixel), 9 + 9 - 4 + 4);
    EXPECT_EQ(std::count(picture.pixels.begin(), picture.pixels.end(), 0u), 200 - 18);
}

} // namespace
} // namespace haloric
