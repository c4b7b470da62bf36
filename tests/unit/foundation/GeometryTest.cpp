#include "foundation/Geometry.h"

#include <cmath>
#include <limits>

namespace haloric {
namespace {

TEST(GeometryTest, flipping_a_rectangle_keeps_x_and_size_and_mirrors_y)
{
    EXPECT_EQ(flippedVertically({10, 20, 300, 200}, 1080), (Rect{10, 860, 300, 200}));
}

TEST(GeometryTest, flipping_twice_gives_the_rectangle_back)
{
    const Rect rect{-12.5, 33, 640, 480};
    EXPECT_EQ(flippedVertically(flippedVertically(rect, 900), 900), rect);
}

TEST(GeometryTest, rectangles_that_only_touch_share_no_area)
{
    EXPECT_EQ(intersectionArea({0, 0, 10, 10}, {10, 0, 10, 10}), 0);
    EXPECT_FALSE(intersects({0, 0, 10, 10}, {10, 0, 10, 10}));
}

TEST(GeometryTest, the_shared_area_is_measured) { EXPECT_EQ(intersectionArea({0, 0, 10, 10}, {6, 7, 10, 10}), 12); }

TEST(GeometryTest, a_negative_inset_grows_the_rectangle_on_every_side)
{
    EXPECT_EQ((Rect{10, 10, 20, 20}.insetBy(-4)), (Rect{6, 6, 28, 28}));
}

TEST(GeometryTest, a_rectangle_is_finite_only_if_every_coordinate_and_edge_is)
{
    constexpr double kLarge = std::numeric_limits<double>::max();
    EXPECT_TRUE(isFinite({-1, 2, 3, 4}));
    for (const double bad : {std::nan(""), HUGE_VAL, -HUGE_VAL}) {
        EXPECT_FALSE(isFinite({bad, 0, 1, 1}));
        EXPECT_FALSE(isFinite({0, bad, 1, 1}));
        EXPECT_FALSE(isFinite({0, 0, bad, 1}));
        EXPECT_FALSE(isFinite({0, 0, 1, bad}));
    }
    EXPECT_FALSE(isFinite({kLarge, 0, kLarge, 1})) << "the right edge";
    EXPECT_FALSE(isFinite({0, kLarge, 1, kLarge})) << "the upper edge";
}

} // namespace
} // namespace haloric
