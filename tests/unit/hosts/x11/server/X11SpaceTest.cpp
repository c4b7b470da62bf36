#include "hosts/x11/server/X11Space.h"

#include <limits>

namespace haloric {
namespace {

// Two monitors side by side, the primary one on the right and lower, at two pixels a point.
constexpr X11Space kSpace{2, {1920, 200, 2560, 1440}};

TEST(X11Space, global_points_start_at_the_top_left_of_the_primary_monitor)
{
    EXPECT_EQ(kSpace.toGlobal({1920, 200, 2560, 1440}), (Rect{0, 0, 1280, 720}));
    EXPECT_EQ(kSpace.toGlobal({0, 0, 1920, 1080}), (Rect{-960, -100, 960, 540}));
}

TEST(X11Space, screen_points_start_at_its_bottom_left_and_grow_upward)
{
    EXPECT_EQ(kSpace.toScreenSpace({1920, 200, 2560, 1440}), (Rect{0, 0, 1280, 720}));
    EXPECT_EQ(kSpace.toScreenSpace({1920, 200, 100, 100}), (Rect{0, 670, 50, 50}));
    EXPECT_EQ(kSpace.toScreenSpace({0, 0, 1920, 1080}), (Rect{-960, 280, 960, 540}));
}

TEST(X11Space, pixels_survive_the_way_there_and_back_at_every_scale)
{
    for (const double scale : {1.0, 1.25, 1.5, 1.75, 2.0, 3.0}) {
        const X11Space space{scale, {1920, 200, 2560, 1440}};
        for (const X11Rect& rect : {X11Rect{0, 0, 1, 1}, X11Rect{-333, 77, 801, 603}, X11Rect{3001, 1999, 7, 4095}}) {
            EXPECT_EQ(space.fromGlobal(space.toGlobal(rect)), rect) << scale;
            EXPECT_EQ(space.fromScreenSpace(space.toScreenSpace(rect)), rect) << scale;
        }
    }
}

TEST(X11Space, a_rectangle_that_only_moves_keeps_its_size_in_pixels)
{
    const X11Space space{1.25, {0, 0, 1920, 1080}};
    for (double x = 0; x < 4; x += 0.1)
        EXPECT_EQ(space.fromGlobal({x, x, 100.5, 33.3}).width, space.fromGlobal({0, 0, 100.5, 33.3}).width);
}

TEST(X11Space, a_rectangle_that_moves_by_whole_pixels_keeps_its_offset)
{
    const X11Space space{1.25, {1920, 200, 2560, 1440}};
    for (const double margin : {38.0, 40.0, 38.1}) { // 47.5, 50 and 47.625 pixels
        const auto around = [&](int pixel) { return space.toScreenSpace({pixel, pixel, 100, 100}).insetBy(-margin); };
        const Point offset = space.offsetFromScreenSpace(around(0));
        const int distance = space.fromScreenSpace(around(0)).x;
        for (int pixel = -500; pixel < 500; ++pixel) {
            EXPECT_EQ(space.offsetFromScreenSpace(around(pixel)), offset) << pixel;
            EXPECT_EQ(space.fromScreenSpace(around(pixel)).x, distance + pixel);
            EXPECT_EQ(space.fromScreenSpace(around(pixel)).y, distance + pixel);
        }
        EXPECT_NEAR(distance + offset.x, -margin * 1.25, 1.0 / 256);
    }
}

TEST(X11Space, what_lies_on_whole_pixels_has_no_offset)
{
    for (const double scale : {1.0, 1.25, 1.5, 1.75, 2.0, 3.0}) {
        const X11Space space{scale, {1920, 200, 2560, 1440}};
        EXPECT_EQ(space.offsetFromScreenSpace(space.toScreenSpace({-333, 77, 801, 603})), Point{}) << scale;
    }
}

TEST(X11Space, coordinates_beyond_any_window_stay_numbers)
{
    const double huge = std::numeric_limits<double>::max();
    EXPECT_GT(kSpace.fromGlobal({huge, 0, 0, 0}).x, 1'000'000);
    EXPECT_LT(kSpace.fromGlobal({-huge, 0, 0, 0}).x, -1'000'000);
}

} // namespace
} // namespace haloric
