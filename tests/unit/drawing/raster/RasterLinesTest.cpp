#include "drawing/raster/Picture.h"
#include "drawing/raster/RasterCanvas.h"
#include "support/PictureDifference.h"

#include <limits>

namespace haloric {
namespace {

constexpr LineStyle kButt{4, LineCap::butt, LineJoin::miter};
constexpr LineStyle kRound{4, LineCap::round, LineJoin::round};

class RasterLines : public testing::Test {
protected:
    static constexpr Color kRed{1, 0, 0, 1};
    static constexpr Color kHalfBlue{0, 0, 1, 0.5};
    static constexpr std::uint32_t kRedPixel = 0xffff0000;
    static constexpr std::uint32_t kHalfBluePixel = 0x80000080;

    void stroke(std::vector<Polyline> lines, const Color& color, const LineStyle& style)
    {
        canvas.strokeLines(lines, color, style);
    }

    // Rows from the bottom, as the points.
    std::uint32_t at(int x, int y) const { return picture.at(x, picture.height - 1 - y); }

    int painted() const
    {
        return static_cast<int>(std::count_if(picture.pixels.begin(), picture.pixels.end(),
                                              [](std::uint32_t pixel) { return pixel != 0; }));
    }

    Picture picture{40, 30};
    RasterResources resources;
    RasterCanvas canvas{resources, picture.buffer(), {1, {40, 30}, 0, 0}, RasterContents::transparent};
};

TEST_F(RasterLines, a_line_with_butt_caps_covers_its_length_and_its_width)
{
    stroke({{{{10, 10}, {30, 10}}}}, kRed, kButt);
    EXPECT_EQ(painted(), 20 * 4);
    EXPECT_EQ(at(10, 8), kRedPixel);
    EXPECT_EQ(at(29, 11), kRedPixel);
}

TEST_F(RasterLines, round_caps_reach_half_the_width_beyond_the_ends)
{
    stroke({{{{10, 10}, {30, 10}}}}, kRed, kRound);
    for (const int y : {9, 10}) {
        EXPECT_GT(alphaOf(at(8, y)), 0x80U) << y;
        EXPECT_EQ(at(9, y), kRedPixel) << y;
        EXPECT_GT(alphaOf(at(31, y)), 0x80U) << y;
    }
    for (int y = 0; y < 30; ++y) {
        EXPECT_EQ(at(7, y), 0U) << y;
        EXPECT_EQ(at(32, y), 0U) << y;
    }
    EXPECT_LT(alphaOf(at(8, 11)), 0x80U); // round, not square
}

TEST_F(RasterLines, a_corner_is_pointed_or_round_as_the_style_says)
{
    const std::vector<Polyline> corner{{{{10, 25}, {10, 10}, {30, 10}}}};
    stroke(corner, kRed, kButt);
    EXPECT_EQ(at(8, 8), kRedPixel);
    std::fill(picture.pixels.begin(), picture.pixels.end(), 0U);
    stroke(corner, kRed, {4, LineCap::butt, LineJoin::round});
    EXPECT_LT(alphaOf(at(8, 8)), 0x80U);
    EXPECT_EQ(at(9, 9), kRedPixel);
}

TEST_F(RasterLines, a_corner_too_sharp_for_a_point_is_cut_off)
{
    stroke({{{{5, 15}, {20, 15.2}, {5, 15.4}}}}, kRed, {2, LineCap::butt, LineJoin::miter});
    EXPECT_EQ(at(23, 15), 0U);
}

TEST_F(RasterLines, a_sharp_corner_is_drawn_to_its_point)
{
    // At this angle it reaches 4.1 widths.
    stroke({{{{5, 13}, {20, 15}, {5, 17}}}}, kRed, {2, LineCap::butt, LineJoin::miter});
    EXPECT_GT(alphaOf(at(25, 15)), 0x20U);
}

TEST_F(RasterLines, lines_stay_open)
{
    stroke({{{{10, 25}, {10, 10}, {30, 10}}}}, kRed, kButt);
    EXPECT_EQ(at(20, 17), 0U); // where a closing line would pass
}

TEST_F(RasterLines, where_lines_cross_the_colour_counts_once)
{
    stroke({{{{5, 15}, {35, 15}}}, {{{20, 5}, {20, 25}}}}, kHalfBlue, kButt);
    EXPECT_EQ(at(20, 15), kHalfBluePixel);
    EXPECT_EQ(at(8, 15), kHalfBluePixel);
}

TEST_F(RasterLines, a_clip_limits_them)
{
    canvas.clip(Path::rect({0, 0, 20, 30}), FillRule::nonZero);
    stroke({{{{10, 10}, {30, 10}}}}, kRed, kRound);
    EXPECT_EQ(at(19, 10), kRedPixel);
    EXPECT_EQ(at(20, 10), 0U);
}

TEST_F(RasterLines, they_cast_shadows_as_fills_do)
{
    canvas.setShadow({0, {0, 10}, kHalfBlue});
    stroke({{{{10, 10}, {30, 10}}}}, kRed, kButt);
    EXPECT_EQ(at(20, 10), kRedPixel);
    EXPECT_EQ(at(20, 20), kHalfBluePixel);
    EXPECT_EQ(painted(), 2 * 20 * 4);
}

TEST_F(RasterLines, the_clear_mode_erases_along_them)
{
    canvas.fillRect({0, 0, 40, 30}, kRed, CompositingOperation::sourceOver);
    canvas.setBlendMode(BlendMode::clear);
    stroke({{{{10, 10}, {30, 10}}}}, kRed, kButt);
    EXPECT_EQ(at(20, 10), 0U);
    EXPECT_EQ(painted(), 40 * 30 - 20 * 4);
}

TEST_F(RasterLines, a_line_without_a_second_point_is_not_drawn)
{
    stroke({{}, {{{10, 10}}}}, kRed, kRound);
    EXPECT_EQ(painted(), 0);
}

TEST_F(RasterLines, a_line_of_no_length_is_a_dot_with_round_caps)
{
    stroke({{{{10, 10}, {10, 10}}}}, kRed, kRound);
    EXPECT_EQ(at(10, 10), kRedPixel);
    EXPECT_EQ(at(13, 10), 0U);
}

TEST_F(RasterLines, numbers_that_make_no_sense_draw_nothing)
{
    using Limits = std::numeric_limits<double>;
    for (const double strange : {Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity()}) {
        stroke({{{{strange, 10}, {30, 10}}}, {{{10, 10}, {30, strange}}}}, kRed, kRound);
        stroke({{{{10, 10}, {30, 10}}}}, kRed, {strange, LineCap::round, LineJoin::round});
    }
    stroke({{{{10, 10}, {30, 10}}}}, kRed, {0, LineCap::round, LineJoin::round});
    stroke({{{{10, 10}, {30, 10}}}}, kRed, {-3, LineCap::round, LineJoin::round});
    EXPECT_EQ(painted(), 0);
}

TEST_F(RasterLines, a_line_that_makes_no_sense_leaves_the_others_alone)
{
    stroke({{{{std::nan(""), 0}, {1, 1}}}, {{{10, 10}, {30, 10}}}}, kRed, kButt);
    EXPECT_EQ(painted(), 20 * 4);
}

TEST_F(RasterLines, lines_and_widths_beyond_all_bounds_do_no_harm)
{
    stroke({{{{-1e300, 10}, {1e300, 10}}}}, kRed, kButt);
    EXPECT_EQ(at(0, 10), kRedPixel);
    EXPECT_EQ(at(39, 10), kRedPixel);
    stroke({{{{10, 10}, {30, 20}, {10, 21}}}}, kRed, {1e300, LineCap::butt, LineJoin::miter});
}

TEST(RasterLinesInParts, a_part_has_the_pixels_of_the_whole)
{
    const Color red{1, 0, 0, 1};
    constexpr RasterView kWhole{1.5, {40, 30}, 0, 0};
    const std::vector<Polyline> lines{{{{3.3, 28}, {20, 2.7}, {38, 25}}}};
    RasterResources resources;
    Picture whole(60, 45);
    RasterCanvas(resources, whole.buffer(), kWhole, RasterContents::transparent).strokeLines(lines, red, kRound);
    Picture part(23, 45);
    RasterCanvas(resources, part.buffer(), {1.5, {40, 30}, 17, 0}, RasterContents::transparent)
        .strokeLines(lines, red, kRound);
    for (int y = 0; y < 45; ++y)
        for (int x = 0; x < 23; ++x)
            ASSERT_EQ(part.at(x, y), whole.at(x + 17, y)) << x << ", " << y;
}

} // namespace
} // namespace haloric
