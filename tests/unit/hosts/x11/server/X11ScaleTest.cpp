#include "hosts/x11/server/X11Scale.h"

#include <limits>

namespace haloric {
namespace {

TEST(X11Scale, a_text_resolution_is_rounded_down_to_quarters)
{
    EXPECT_EQ(X11Scale::fromDotsPerInch(96), 1);
    EXPECT_EQ(X11Scale::fromDotsPerInch(110), 1);
    EXPECT_EQ(X11Scale::fromDotsPerInch(120), 1.25);
    EXPECT_EQ(X11Scale::fromDotsPerInch(144), 1.5);
    EXPECT_EQ(X11Scale::fromDotsPerInch(192), 2);
    EXPECT_EQ(X11Scale::fromDotsPerInch(215), 2);
    EXPECT_EQ(X11Scale::fromDotsPerInch(288), 3);
}

TEST(X11Scale, a_resolution_that_makes_no_sense_gives_a_usable_scale)
{
    EXPECT_EQ(X11Scale::fromDotsPerInch(0), 1);
    EXPECT_EQ(X11Scale::fromDotsPerInch(-192), 1);
    EXPECT_EQ(X11Scale::fromDotsPerInch(72), 1);
    EXPECT_EQ(X11Scale::fromDotsPerInch(1e6), 4);
    EXPECT_EQ(X11Scale::fromDotsPerInch(std::numeric_limits<double>::quiet_NaN()), 1);
    EXPECT_EQ(X11Scale::fromDotsPerInch(std::numeric_limits<double>::infinity()), 1);
}

TEST(X11Scale, the_resolution_is_found_among_other_resources)
{
    EXPECT_EQ(X11Scale::fromResources("Xcursor.size:\t24\nXft.dpi:\t192\nXft.hinting:\t1\n"), 2);
    EXPECT_EQ(X11Scale::fromResources("Xft.dpi: 144"), 1.5);
    EXPECT_EQ(X11Scale::fromResources("  Xft.dpi:144.0\n"), 1.5);
}

TEST(X11Scale, without_a_readable_resolution_the_scale_is_one)
{
    EXPECT_EQ(X11Scale::fromResources(""), 1);
    EXPECT_EQ(X11Scale::fromResources("\n\n"), 1);
    EXPECT_EQ(X11Scale::fromResources("Xft.dpi:"), 1);
    EXPECT_EQ(X11Scale::fromResources("Xft.dpi: many\n"), 1);
    EXPECT_EQ(X11Scale::fromResources("NotXft.dpi: 192\nXft.dpiScale: 192\n"), 1);
}

TEST(X11Scale, what_is_set_is_in_force)
{
    X11Scale scale;
    EXPECT_EQ(scale.current(), X11Space{});
    scale.set({2, {10, 20, 300, 200}});
    EXPECT_EQ(scale.current(), (X11Space{2, {10, 20, 300, 200}}));
}

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
        for (const PixelRect& rect :
             {PixelRect{0, 0, 1, 1}, PixelRect{-333, 77, 801, 603}, PixelRect{3001, 1999, 7, 4095}}) {
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
