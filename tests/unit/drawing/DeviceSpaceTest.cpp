#include "drawing/DeviceSpace.h"

#include <limits>

namespace haloric {
namespace {

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinite = std::numeric_limits<double>::infinity();
constexpr double kHuge = std::numeric_limits<double>::max();

DeviceShape pixels(double x0, double y0, double x1, double y1, double radius)
{
    const auto units = [](double value) { return static_cast<int>(value * DeviceShape::kUnit); };
    return {units(x0), units(y0), units(x1), units(y1), units(radius)};
}

TEST(DeviceSpace, turns_the_view_upside_down_and_scales_it)
{
    const DeviceSpace space(2, {100, 50});
    EXPECT_EQ(space.pixels(), (PixelRect{0, 0, 200, 100}));
    EXPECT_EQ(space.shape(Rect{10, 5, 20, 10}), pixels(20, 70, 60, 90, 0));
    EXPECT_EQ(space.shape(RoundedRect{{10, 5, 20, 10}, 3}), pixels(20, 70, 60, 90, 6));
}

TEST(DeviceSpace, keeps_fractions_of_a_pixel)
{
    EXPECT_EQ(DeviceSpace(1.25, {100, 50}).shape(Rect{1, 1, 3, 2}), pixels(1.25, 58.75, 5, 61.25, 0));
}

TEST(DeviceSpace, an_offset_shifts_everything_but_what_reaches_the_edges)
{
    const DeviceSpace space(1.25, {100, 52}, {-0.5, 0.25});
    EXPECT_EQ(space.pixels(), (PixelRect{0, 0, 125, 65}));
    EXPECT_EQ(space.shape(Rect{2, 2, 4, 4}), pixels(2, 57.75, 7, 62.75, 0));
    EXPECT_EQ(space.stroke(Rect{2, 2, 4, 4}, 0.8).outer, pixels(1.5, 57.25, 7.5, 63.25, 0));
    EXPECT_EQ(space.shape(Rect{0, 0, 100, 52}), pixels(-0.5, 0, 125, 65.25, 0));
}

TEST(DeviceSpace, a_radius_is_limited_to_half_the_shorter_side)
{
    EXPECT_EQ(DeviceSpace(1, {100, 100}).shape(RoundedRect{{0, 0, 10, 40}, 12}).radius, 5 * DeviceShape::kUnit);
    EXPECT_EQ(DeviceSpace(1, {100, 100}).shape(RoundedRect{{0, 0, 10, 40}, kInfinite}).radius, 5 * DeviceShape::kUnit);
    EXPECT_EQ(DeviceSpace(1, {100, 100}).shape(RoundedRect{{0, 0, 10, 40}, -3}).radius, 0);
    EXPECT_EQ(DeviceSpace(1, {100, 100}).shape(RoundedRect{{0, 0, 10, 40}, kNone}).radius, 0);
}

TEST(DeviceSpace, a_rectangle_over_the_whole_view_takes_in_its_last_pixels)
{
    const DeviceSpace space(1.25, {101, 51}); // 126.25 by 63.75 pixels
    EXPECT_EQ(space.pixels(), (PixelRect{0, 0, 127, 64}));
    EXPECT_EQ(space.shape(Rect{0, 0, 101, 51}), pixels(0, 0, 127, 64, 0));
}

TEST(DeviceSpace, a_stroke_lies_on_both_sides_of_its_line)
{
    const StrokeOutline outline = DeviceSpace(1, {100, 100}).stroke(RoundedRect{{10, 10, 50, 50}, 8}, 4);
    EXPECT_EQ(outline.outer, pixels(8, 38, 62, 92, 10));
    EXPECT_EQ(outline.inner, pixels(12, 42, 58, 88, 6));
}

TEST(DeviceSpace, a_stroke_wider_than_its_corner_is_sharp_inside_and_round_outside)
{
    const StrokeOutline outline = DeviceSpace(1, {100, 100}).stroke(RoundedRect{{10, 10, 50, 50}, 1}, 6);
    EXPECT_EQ(outline.outer.radius, 4 * DeviceShape::kUnit);
    EXPECT_EQ(outline.inner.radius, 0);
}

TEST(DeviceSpace, a_stroke_of_sharp_corners_stays_sharp)
{
    const StrokeOutline outline = DeviceSpace(1, {100, 100}).stroke(RoundedRect{{10, 10, 50, 50}, 0}, 6);
    EXPECT_EQ(outline.outer, pixels(7, 37, 63, 93, 0));
    EXPECT_EQ(outline.inner, pixels(13, 43, 57, 87, 0));
}

TEST(DeviceSpace, a_stroke_wider_than_its_shape_has_no_hole)
{
    EXPECT_TRUE(DeviceSpace(1, {100, 100}).stroke(Rect{10, 10, 5, 5}, 8).inner.empty());
}

TEST(DeviceSpace, the_edge_of_a_stroke_inside_a_whole_pixel_is_that_pixel)
{
    // An inset by half the width and the other half added back, at a scale that no fraction of 256 hits.
    const StrokeOutline outline =
        DeviceSpace(4.0 / 3, {300, 300}).stroke(RoundedRect{{30.25, 30.25, 59.5, 59.5}, 5}, 0.5);
    EXPECT_EQ(outline.outer.x0, 40 * DeviceShape::kUnit);
    EXPECT_EQ(outline.outer.x1, 120 * DeviceShape::kUnit);
}

TEST(DeviceSpace, a_shape_with_nan_or_without_a_size_is_empty)
{
    const DeviceSpace space(1, {100, 100});
    for (const double bad : {kNone, -kInfinite, -1.0, 0.0}) {
        EXPECT_TRUE(space.shape(Rect{0, 0, bad, 10}).empty());
        EXPECT_TRUE(space.shape(RoundedRect{{0, 0, 10, bad}, 3}).empty());
        EXPECT_TRUE(space.stroke(Rect{0, 0, 10, 10}, bad).outer.empty());
    }
    EXPECT_TRUE(space.shape(Rect{kNone, 0, 10, 10}).empty());
    EXPECT_TRUE(space.shape(Rect{-kInfinite, 0, kInfinite, 10}).empty());
    EXPECT_TRUE(space.stroke(Rect{0, 0, 10, 10}, kInfinite).outer.empty());
}

TEST(DeviceSpace, too_large_values_are_limited)
{
    const DeviceSpace space(2, {100, 100});
    const DeviceShape shape = space.shape(RoundedRect{{-kHuge / 4, -kHuge / 4, kHuge / 2, kHuge / 2}, kHuge});
    EXPECT_LE(shape.x0, -1000 * DeviceShape::kUnit);
    EXPECT_GE(shape.x1, 1000 * DeviceShape::kUnit);
    EXPECT_FALSE(space.shape(Rect{0, 0, kInfinite, kInfinite}).empty());
    EXPECT_EQ(DeviceSpace(kNone, {100, 100}).scale(), 1);
    EXPECT_EQ(DeviceSpace(-2, {100, 100}).scale(), 1);
    EXPECT_TRUE(DeviceSpace(1, {kNone, -5}).pixels().empty());
    EXPECT_EQ(space.length(kInfinite, 40), 40);
    EXPECT_EQ(space.length(kNone, 40), 0);
}

TEST(DeviceSpace, coordinates_are_rounded_to_the_nearest_unit)
{
    const DeviceSpace space(1, {100, 100});
    EXPECT_EQ(space.shape(RoundedRect{{0.3, 0, 1.9, 99.7}, 0}), (DeviceShape{77, 77, 563, 25600, 0}));
    EXPECT_EQ(space.shape(RoundedRect{{-0.3, 0, 1.5, 100.3}, 0}), (DeviceShape{-77, -77, 307, 25600, 0}));
}

} // namespace
} // namespace haloric
